#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "app/stamped_identity.h"
#include "catalogue/cipher.h"
#include "tests/tools/sample_executable.h"
#include "tools/desk/media_folder.h"

namespace {

namespace fs = std::filesystem;

std::string stamped(std::string code, std::string name) {
    code.resize(sizeof StampedIdentity::productCode);
    name.resize(sizeof StampedIdentity::productName);
    return executable(std::string(stampMarker, sizeof stampMarker) + code + name);
}

std::string damaged(std::string content) {
    content.back() ^= 1;
    return content;
}

using Folder = std::map<std::string, std::string>;

struct Case {
    const char* what;
    std::string installer;
    Folder folder;
    std::string build;
    std::string path;                    ///< how it begins
    std::vector<std::string> missing;    ///< files
    std::vector<std::string> problems;   ///< how each begins
    std::vector<std::string> handOvers;  ///< choice and Windows
};

const std::string compiledIn = "16.4.10002.0";
const std::string section = "[Version Number]\r\nVersion Number=";
const Folder setupOnly = {{"Setup.Exe", ""}};

/// Of a folder with these files; the run reads its product data there, too, unless told otherwise.
MediaReport examine(const std::string& installer, const Folder& folder, bool installerIsOnMedia,
                    bool dataBesideInstaller = true, const std::string& requiredBuild = "") {
    Media media;
    media.installer = installer;
    media.besideInstaller = [&](const std::string& name) {
        return dataBesideInstaller && folder.contains(name) ? NamedFile{true, folder.at(name)}
                                                            : NamedFile{};
    };
    media.onMedia = [&folder](const std::string& name) { return FileState{folder.contains(name)}; };
    media.installerIsOnMedia = installerIsOnMedia;
    media.directory = "E:\\m";
    media.requiredBuild = requiredBuild;
    CProductData catalogue;
    return examineMedia(media, catalogue);
}

/// Whether there is one text, which begins so; with an empty `start`, whether there is none.
bool beginsWith(const std::vector<std::string>& texts, const std::string& start) {
    return start.empty() ? texts.empty() : texts.size() == 1 && texts[0].starts_with(start);
}

const Case table[] = {
    {"direct",
     stamped("1Q", "V"),
     setupOnly,
     compiledIn,
     "older viewers",
     {"UninstallQmx.exe"},
     {},
     {"without a question|any Windows"}},
    {"silent end", stamped("1r", "L"), {}, compiledIn, "ends silently", {}, {}, {}},
    {"hardware",
     stamped("1m", "I"),
     {{"Setup.Exe", ""}, {"flatten.exe", ""}},
     compiledIn,
     "drivers, then \"Install Product\"",
     {"SerialTavlinkDrivers.fzx"},
     {},
     {"Live Product|32-bit Windows", "Live Product|64-bit Windows", "File Viewer|32-bit Windows",
      "File Viewer|64-bit Windows", "Demonstration|any Windows"}},
    {"live only",
     stamped("1w", "M"),
     {},
     compiledIn,
     "older versions, then drivers, then the live product",
     {"flatten.exe", "CorvaneTavlinkDrivers.fzx", "Setup.Exe"},
     {},
     {"without a question|any Windows"}},
    {"ordinary, enciphered data first",
     stamped("0q", "U"),
     {{"Setup.Exe", ""},
      {"ProductData.inx", encipher(section + "1.2.3.4")},
      {"ProductData.ini", section + "5.6.7.8"}},
     "1.2.3.4",
     "older versions, then \"Install Product\"",
     {},
     {},
     {"Live Product|any Windows"}},
    {"damaged data",
     stamped("1r", "L"),
     {{"ProductData.inx", damaged(encipher(section + "1.2.3.4"))},
      {"ProductData.ini", section + "5.6.7.8"}},
     compiledIn,
     "ends silently",
     {},
     {"ProductData.inx: "},
     {}},
    {"bare line feeds",
     stamped("1r", "L"),
     {{"ProductData.ini", "[Version Number]\nVersion Number=1.2.3.4\nB=2\n"}},
     "1.2.3.4\nB=2",
     "ends silently",
     {},
     {"ProductData.ini: lines do not end in CR LF"},
     {}},
    {"no version",
     stamped("1r", "L"),
     {{"ProductData.ini", "[Version]\r\nVersion Number=1.2.3.4\r\n"}},
     compiledIn,
     "ends silently",
     {},
     {"ProductData.ini: no \"Version Number\""},
     {}},
    {"not stamped", stamped("", ""), {}, "", "", {}, {"The executable is not a stamped"}, {}},
    {"no installer", executable(""), {}, "", "", {}, {"The executable is not a stamped"}, {}},
    {"another letter case", stamped("1R", "L"), {}, compiledIn, "ends silently", {}, {""}, {}},
};

TEST(MediaReport, TellsWhatTheInstallerWillDo) {
    for (const Case& row : table) {
        SCOPED_TRACE(row.what);
        const MediaReport report = examine(row.installer, row.folder, true);
        EXPECT_EQ(report.build, row.build);
        EXPECT_TRUE(report.path.starts_with(row.path)) << report.path;
        std::vector<std::string> missing;
        for (const MediaFile& file : report.files) {
            if (!file.present) {
                missing.push_back(file.name);
            }
        }
        EXPECT_EQ(missing, row.missing);
        ASSERT_EQ(report.problems.size(), row.problems.size());
        for (std::size_t index = 0; index < row.problems.size(); ++index) {
            EXPECT_TRUE(report.problems[index].starts_with(row.problems[index]))
                << report.problems[index];
        }
        EXPECT_EQ(report.isComplete(), missing.empty() && row.problems.empty());
        std::vector<std::string> handOvers;
        for (const HandOver& handOver : report.handOvers) {
            handOvers.push_back(handOver.choice + '|' + handOver.windows);
            EXPECT_TRUE(handOver.parameters.ends_with("`-tmp=E:\\m\\`")) << handOver.parameters;
        }
        EXPECT_EQ(handOvers, row.handOvers);
    }
}

// The guide's own check once looked at the media folder alone, and reassured with the wrong build.
TEST(MediaReport, TakesTheBuildFromWhereTheRunDoes) {
    const std::string name = "Tavlink Universal Analyzer";
    const Folder withData = {{"Setup.Exe", ""}, {"ProductData.ini", section + "1.2.3.4\r\n"}};
    const struct {
        const char* what;
        bool installerIsOnMedia, dataBesideInstaller;
        std::string requiredBuild;
        std::string problem, warning;  ///< how it begins
    } cases[] = {
        {"on the media", true, true, "", "", ""},
        {"the right build", true, true, "1.2.3.4", "", ""},
        {"another build", true, true, "1.2.3.5", "The build is 1.2.3.4, not 1.2.3.5", ""},
        {"data on the media alone", false, false, "", "ProductData.ini on the media is not read",
         ""},
        {"another folder", false, true, "", "", "The installer lies in another folder"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        const MediaReport report = examine(stamped("0q", name), withData, row.installerIsOnMedia,
                                           row.dataBesideInstaller, row.requiredBuild);
        EXPECT_EQ(report.build, row.dataBesideInstaller ? "1.2.3.4" : compiledIn);
        EXPECT_EQ(report.isComplete(), row.problem.empty());
        EXPECT_TRUE(beginsWith(report.problems, row.problem)) << asText(report);
        EXPECT_TRUE(beginsWith(report.warnings, row.warning)) << asText(report);
    }
    EXPECT_TRUE(
        beginsWith(examine(stamped("16", "Tavlink Bluetooth Analyzer"), withData, true).warnings,
                   "A run ends without a word"));
    EXPECT_TRUE(beginsWith(examine(stamped("0q", "Universal"), withData, true).warnings,
                           "The title says \"Universal\", the program folder \"" + name));
}

TEST(MediaFolder, CountsAFileOnlyWhenItIsWhole) {
    const fs::path folder = fs::temp_directory_path() / ("media." + std::to_string(getpid()));
    fs::create_directories(folder / "Folder.fzx");
    fs::create_symlink("nowhere", folder / "link.fzx");
    const std::string whole = executable("content");
    std::string changed = whole;
    changed.back() ^= 1;
    for (const auto& [name, content] : Folder{{"SETUP.EXE", whole},
                                              {"cut.exe", whole.substr(0, whole.size() - 1)},
                                              {"headers.exe", whole.substr(0, 100)},
                                              {"changed.exe", changed},
                                              {"text.exe", "a text"},
                                              {"empty.fzx", ""},
                                              {"archive.fzx", "a"}}) {
        std::ofstream(folder / name, std::ios::binary) << content;
    }
    const struct {
        const char *name, *seen;
    } cases[] = {
        {"Setup.Exe", "whole"},
        {"cut.exe", "it is cut off"},
        {"headers.exe", "it is cut off"},
        {"changed.exe", "its checksum does not match"},
        {"text.exe", "it is no Windows executable"},
        {"empty.fzx", "it is empty"},
        {"archive.fzx", "whole"},
        {"folder.fzx", "it is a folder"},
        {"link.fzx", "it is a link that leads nowhere"},
        {"other.fzx", "missing"},
    };
    for (const auto& row : cases) {
        const FileState state = fileState(folder, row.name);
        const std::string seen = !state.present         ? "missing"
                                 : state.damage.empty() ? "whole"
                                                        : state.damage;
        EXPECT_TRUE(seen.starts_with(row.seen)) << row.name << ": " << seen;
    }
    fs::remove_all(folder);
}

}  // namespace
