#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "app/stamped_identity.h"
#include "catalogue/cipher.h"
#include "desk/media/media_folder.h"
#include "tests/desk/sample_executable.h"
#include "tests/rows.h"

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

/// "build | route | lacks FILE | the start of a problem | choice, Windows".
std::string outcome(const std::string& code, const Folder& folder) {
    const MediaReport report = examine(stamped(code, code), folder, true);
    std::string text = report.build + " | " + report.path;
    bool complete = report.problems.empty();
    for (const MediaFile& file : report.files) {
        text += file.present ? "" : " | lacks " + file.name;
        complete = complete && file.present;
    }
    EXPECT_EQ(report.isComplete(), complete);
    for (const std::string& problem : report.problems) {
        text += " | " + problem.substr(0, 25);
    }
    for (const HandOver& handOver : report.handOvers) {
        text += " | " + handOver.choice + ", " + handOver.windows;
        EXPECT_TRUE(handOver.parameters.ends_with("`-tmp=E:\\m\\`")) << handOver.parameters;
    }
    return text;
}

TEST(MediaReport, TellsWhatTheInstallerWillDo) {
    const Folder enciphered = {{"ProductData.inx", encipher(section + "1.2.3.4")},
                               {"ProductData.ini", section + "5.6.7.8"}};
    const Folder unreadable = {{"ProductData.inx", damaged(enciphered.at("ProductData.inx"))},
                               {"ProductData.ini", section + "5.6.7.8"}};
    const std::string lineFeeds = "[Version Number]\nVersion Number=1.2.3.4\nB=2\n",
                      silently = " | ends silently, nothing is installed";
    expectRows<std::tuple<std::string, Folder>, std::string>(
        {{{"1Q", setupOnly},
          compiledIn + " | older viewers are stopped and removed, then the viewer is installed |"
                       " lacks UninstallQmx.exe | without a question, any Windows"},
         {{"1m", {{"Setup.Exe", ""}, {"flatten.exe", ""}}},
          compiledIn + " | drivers, then \"Install Product\" | lacks SerialTavlinkDrivers.fzx |"
                       " Live Product, 32-bit Windows | Live Product, 64-bit Windows |"
                       " File Viewer, 32-bit Windows | File Viewer, 64-bit Windows |"
                       " Demonstration, any Windows"},
         {{"1w", {}},
          compiledIn + " | older versions, then drivers, then the live product without a question"
                       " | lacks flatten.exe | lacks CorvaneTavlinkDrivers.fzx | lacks Setup.Exe"
                       " | Live Product, any Windows"},
         {{"0q", enciphered},
          "1.2.3.4 | older versions, then \"Install Product\" | lacks Setup.Exe |"
          " Live Product, any Windows"},
         {{"1r", {}}, compiledIn + silently},
         {{"1r", unreadable}, compiledIn + silently + " | ProductData.inx: Cannot l"},
         {{"1r", {{"ProductData.ini", lineFeeds}}},
          "1.2.3.4\nB=2" + silently + " | ProductData.ini: lines do"},
         {{"1r", {{"ProductData.ini", "[Version]\r\nVersion Number=1\r\n"}}},
          compiledIn + silently + " | ProductData.ini: no \"Vers"},
         {{"1R", {}}, compiledIn + silently + " | No product with id \"1R\" i"},
         {{"", {}}, " |  | The executable is not a s"}},
        outcome);
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
    } cases[] = {{"on the media", true, true, "", "", ""},
                 {"the right build", true, true, "1.2.3.4", "", ""},
                 {"another build", true, true, "1.2.3.5", "The build is 1.2.3.4, not 1.2.3.5", ""},
                 {"data on the media alone", false, false, "",
                  "ProductData.ini on the media is not read", ""},
                 {"another folder", false, true, "", "", "The installer lies in another folder"}};
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
    } cases[] = {{"Setup.Exe", "whole"},
                 {"cut.exe", "it is cut off"},
                 {"headers.exe", "it is cut off"},
                 {"changed.exe", "its checksum does not match"},
                 {"text.exe", "it is no Windows executable"},
                 {"empty.fzx", "it is empty"},
                 {"archive.fzx", "whole"},
                 {"folder.fzx", "it is a folder"},
                 {"link.fzx", "No such file"},
                 {"other.fzx", "missing"}};
    for (const auto& row : cases) {
        const FileState state = fileState(folder, row.name);
        const std::string seen = !state.present         ? "missing"
                                 : state.damage.empty() ? "whole"
                                                        : state.damage;
        EXPECT_NE(seen.find(row.seen), std::string::npos) << row.name << ": " << seen;
    }
    fs::remove_all(folder);
}

}  // namespace
