#include "desk/media/media_report.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "app/stamped_identity.h"
#include "catalogue/cipher.h"
#include "desk/media/manifest.h"
#include "desk/media/media_folder.h"
#include "desk/whole_file.h"
#include "tests/desk/sample_executable.h"

namespace {

namespace fs = std::filesystem;

std::string stamped(std::string code, std::string name) {
    code.resize(sizeof StampedIdentity::productCode);
    name.resize(sizeof StampedIdentity::productName);
    return executable(std::string(stampMarker, sizeof stampMarker) + code + name);
}

using Files = std::map<std::string, std::string>;
using Texts = std::vector<std::string>;

const std::string compiledIn = "16.4.10002.0";
const std::string section = "[Version Number]\r\nVersion Number=";
const std::string viewerName = "Tavlink Universal Analyzer";

/// A folder of its own for a test.
class MediaReport : public testing::Test {
  protected:
    MediaReport() { fs::create_directories(media); }
    ~MediaReport() override { fs::remove_all(root); }

    /// The report of a folder with these files and an installer in it, or in another folder.
    Json examine(const std::string& installer, const Files& files, bool installerIsOnMedia = true,
                 const MediaChoices& choices = {}) {
        fs::remove_all(root);
        for (const auto& [name, content] : files) {
            writeOutput((media / name).string(), content);
        }
        fs::create_directories(media);
        const fs::path program = (installerIsOnMedia ? media : other) / "Install.exe";
        writeOutput(program.string(), installer);
        return examineMedia(program, media, choices, {});
    }

    const fs::path root = fs::temp_directory_path() / ("media." + std::to_string(getpid()));
    const fs::path media = root / "media", other = root / "other";
};

Texts namesOf(const Json& list, const char* name) {
    Texts names;
    for (const Json& one : list) {
        names.push_back(one[name]);
    }
    return names;
}

bool isOneThatBeginsWith(const Json& texts, const std::string& start) {
    return start.empty() ? texts.empty()
                         : texts.size() == 1 && texts[0].get<std::string>().starts_with(start);
}

TEST_F(MediaReport, TellsWhatTheInstallerWillDo) {
    const struct {
        std::string code, path;
        Texts needs, choices;
    } cases[] = {
        {.code = "1Q",
         .path = "older viewers are stopped and removed, then the viewer is installed",
         .needs = {"UninstallQmx.exe", "Setup.Exe"},
         .choices = {"without a question"}},
        {.code = "1m",
         .path = "drivers, then \"Install Product\"",
         .needs = {"flatten.exe", "SerialTavlinkDrivers.fzx", "Setup.Exe"},
         .choices = {"Live Product", "Live Product", "File Viewer", "File Viewer",
                     "Demonstration"}},
        {.code = "1w",
         .path = "older versions, then drivers, then the live product without a question",
         .needs = {"flatten.exe", "CorvaneTavlinkDrivers.fzx", "Setup.Exe"},
         .choices = {"Live Product"}},
        {.code = "0q",
         .path = "older versions, then \"Install Product\"",
         .needs = {"Setup.Exe"},
         .choices = {"Live Product"}},
        {.code = "1r", .path = "ends silently, nothing is installed", .needs = {}, .choices = {}}};
    for (const auto& row : cases) {
        const Json report = examine(stamped(row.code, row.code), {});
        EXPECT_EQ(report["path"], row.path) << row.code;
        EXPECT_EQ(namesOf(report["files"], "name"), row.needs) << row.code;
        EXPECT_EQ(namesOf(report["handOvers"], "choice"), row.choices) << row.code;
        EXPECT_EQ(report["complete"], row.needs.empty()) << row.code;
    }
}

// The guide's own check once looked at the media folder alone, and reassured with the wrong build.
TEST_F(MediaReport, TakesTheBuildFromWhereTheRunDoes) {
    std::string broken = encipher(section + "1.2.3.4");
    broken.back() ^= 1;
    const Files plain = {{"ProductData.ini", section + "1.2.3.4\r\n"}};
    const struct {
        const char* what;
        Files files;
        std::string build, problem = {}, warning = {};  ///< how those begin
        bool installerIsOnMedia = true;
        std::string requiredBuild = {};
    } cases[] = {{.what = "no data",
                  .files = {},
                  .build = compiledIn,
                  .warning = "There is no product-data"},
                 {.what = "plain", .files = plain, .build = "1.2.3.4"},
                 {.what = "enciphered goes first",
                  .files = {{"ProductData.inx", encipher(section + "5.6.7.8")}, *plain.begin()},
                  .build = "5.6.7.8"},
                 {.what = "unreadable",
                  .files = {{"ProductData.inx", broken}, *plain.begin()},
                  .build = compiledIn,
                  .problem = "ProductData.inx: Cannot l"},
                 {.what = "bare line feeds",
                  .files = {{"ProductData.ini", "[Version Number]\nVersion Number=1.2.3.4\nB=2\n"}},
                  .build = "1.2.3.4\nB=2",
                  .problem = "ProductData.ini: lines do not end"},
                 {.what = "no value",
                  .files = {{"ProductData.ini", "[Version]\r\nVersion Number=1\r\n"}},
                  .build = compiledIn,
                  .problem = "ProductData.ini: no \"Version"},
                 {.what = "breaks the parameters",
                  .files = {{"ProductData.ini", section + "1.2`3\r\n"}},
                  .build = "1.2`3",
                  .problem = "ProductData.ini: The build"},
                 {.what = "another build",
                  .files = plain,
                  .build = "1.2.3.4",
                  .problem = "The build is 1.2.3.4, not 1.2.3.5",
                  .requiredBuild = "1.2.3.5"},
                 {.what = "data on the media alone",
                  .files = plain,
                  .build = compiledIn,
                  .problem = "ProductData.ini on the media is not read",
                  .installerIsOnMedia = false}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        Files files = row.files;
        files["Setup.Exe"] = executable("content");
        Digests digests;
        for (const auto& [name, content] : files) {
            digests[name] = sha256(content);
        }
        const std::string installer = stamped("0q", viewerName);
        if (row.installerIsOnMedia) {
            digests["Install.exe"] = sha256(installer);
        }
        files[manifestFile] = asList(digests);
        const Json report =
            examine(installer, files, row.installerIsOnMedia, {.requiredBuild = row.requiredBuild});
        EXPECT_EQ(report["build"], row.build);
        EXPECT_EQ(report["complete"], row.problem.empty());
        EXPECT_TRUE(isOneThatBeginsWith(report["problems"], row.problem)) << report["problems"];
        EXPECT_TRUE(isOneThatBeginsWith(report["warnings"], row.warning)) << report["warnings"];
    }
}

TEST_F(MediaReport, NamesWhatIsSeldomMeant) {
    const MediaChoices deep{.directory = "D:\\" + std::string(250, 'd')};
    const struct {
        const char* what;
        Json report;
        std::string told;
    } cases[] = {
        {"silent", examine(stamped("16", "Tavlink Bluetooth Analyzer"), {}), "ends without a word"},
        {"name", examine(stamped("0q", "Other"), {}), "The title says"},
        {"code", examine(stamped("1R", "x"), {}), "No product with id"},
        {"no stamp", examine(stamped("", ""), {}), "not a stamped installer"},
        {"path", examine(stamped("0q", viewerName), {}, true, deep), "more than 259 characters"}};
    for (const auto& row : cases) {
        EXPECT_NE(row.report.dump().find(row.told), std::string::npos) << row.what << row.report;
    }
}

TEST(MediaFolder, CountsAFileOnlyWhenItIsWhole) {
    const fs::path folder = fs::temp_directory_path() / ("media." + std::to_string(getpid()));
    fs::create_directories(folder / "Folder.fzx");
    fs::create_symlink("nowhere", folder / "link.fzx");
    const std::string whole = executable("content");
    for (const auto& [name, content] : Files{{"SETUP.EXE", whole},
                                             {"headers.exe", whole.substr(0, 100)},
                                             {"empty.fzx", ""},
                                             {"archive.fzx", "a"}}) {
        std::ofstream(folder / name, std::ios::binary) << content;
    }
    const struct {
        const char *name, *seen;
    } cases[] = {{"Setup.Exe", "whole"},           {"headers.exe", "it is cut off"},
                 {"empty.fzx", "it is empty"},     {"archive.fzx", "whole"},
                 {"folder.fzx", "it is a folder"}, {"link.fzx", "No such file"},
                 {"other.fzx", "missing"}};
    for (const auto& row : cases) {
        const std::optional<fs::path> path = findInFolder(folder, row.name);
        const std::string damage = path ? damageOf(*path) : "missing";
        EXPECT_NE((damage.empty() ? "whole" : damage).find(row.seen), std::string::npos)
            << row.name << ": " << damage;
    }
    fs::remove_all(folder);
}

}  // namespace
