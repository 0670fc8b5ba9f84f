#include "desk/media/media_report.h"

#include <unistd.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "app/stamped_identity.h"
#include "catalogue/cipher.h"
#include "desk/media/media_folder.h"
#include "desk/whole_file.h"
#include "tests/desk/sample_executable.h"
#include "tests/rows.h"

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
    // The path, the files that it needs and the choices.
    expectRows<std::string, std::tuple<std::string, Texts, Texts>>(
        {{"1Q",
          {"older viewers are stopped and removed, then the viewer is installed",
           {"UninstallQmx.exe", "Setup.Exe"},
           {"without a question"}}},
         {"1m",
          {"drivers, then \"Install Product\"",
           {"flatten.exe", "SerialTavlinkDrivers.fzx", "Setup.Exe"},
           {"Live Product", "Live Product", "File Viewer", "File Viewer", "Demonstration"}}},
         {"1w",
          {"older versions, then drivers, then the live product without a question",
           {"flatten.exe", "CorvaneTavlinkDrivers.fzx", "Setup.Exe"},
           {"Live Product"}}},
         {"0q", {"older versions, then \"Install Product\"", {"Setup.Exe"}, {"Live Product"}}},
         {"1r", {"ends silently, nothing is installed", {}, {}}}},
        [this](const std::string& code) {
            const Json report = examine(stamped(code, code), {});
            EXPECT_EQ(report["complete"], report["files"].empty());
            return std::tuple(report["path"].get<std::string>(), namesOf(report["files"], "name"),
                              namesOf(report["handOvers"], "choice"));
        });
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
                 {.what = "enciphered, which goes first, and unreadable",
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
        Json report = examine(stamped("0q", viewerName), files, row.installerIsOnMedia,
                              {.requiredBuild = row.requiredBuild});
        EXPECT_TRUE(
            report["warnings"].back().get<std::string>().starts_with("There is no MANIFEST"));
        report["warnings"].erase(report["warnings"].size() - 1);
        EXPECT_EQ(report["build"], row.build);
        EXPECT_EQ(report["complete"], row.problem.empty());
        EXPECT_TRUE(isOneThatBeginsWith(report["problems"], row.problem)) << report["problems"];
        EXPECT_TRUE(isOneThatBeginsWith(report["warnings"], row.warning)) << report["warnings"];
    }
}

TEST_F(MediaReport, NamesWhatIsSeldomMeant) {
    const MediaChoices deep{.directory = "D:\\" + std::string(250, 'd')};
    const std::pair<std::string, Json> cases[] = {
        {"ends without a word", examine(stamped("16", "Tavlink Bluetooth Analyzer"), {})},
        {"The title says", examine(stamped("0q", "Other"), {})},
        {"No product with id", examine(stamped("1R", "x"), {})},
        {"not a stamped installer", examine(stamped("", ""), {})},
        {"more than 259 characters", examine(stamped("0q", viewerName), {}, true, deep)}};
    for (const auto& [told, report] : cases) {
        EXPECT_NE(report.dump().find(told), std::string::npos) << told << report;
    }
}

TEST_F(MediaReport, CountsAFileOnlyWhenItIsWhole) {
    fs::create_directories(media / "Folder.fzx");
    fs::create_symlink("nowhere", media / "link.fzx");
    const std::string whole = executable("content");
    for (const auto& [name, content] : Files{{"SETUP.EXE", whole},
                                             {"headers.exe", whole.substr(0, 100)},
                                             {"empty.fzx", ""},
                                             {"archive.fzx", "a"}}) {
        writeOutput((media / name).string(), content);
    }
    const std::pair<const char*, const char*> cases[] = {
        {"Setup.Exe", "whole"},   {"headers.exe", "it is cut off"}, {"empty.fzx", "it is empty"},
        {"archive.fzx", "whole"}, {"folder.fzx", "it is a folder"}, {"link.fzx", "No such file"},
        {"other.fzx", "missing"}};
    for (const auto& [name, seen] : cases) {
        const std::optional<fs::path> path = findInFolder(media, name);
        const std::string damage = path ? damageOf(*path) : "missing";
        EXPECT_NE((damage.empty() ? "whole" : damage).find(seen), std::string::npos)
            << name << ": " << damage;
    }
}

}  // namespace
