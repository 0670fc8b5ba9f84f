#include "desk/media/media_report.h"

#include <unistd.h>

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

using Files = std::map<std::string, std::string>;
using Texts = std::vector<std::string>;

const std::string compiledIn = "16.4.10002.0";
const std::string section = "[Version Number]\r\nVersion Number=";
const std::string viewerName = "Tavlink Universal Analyzer";
const Files plain = {{"ProductData.ini", section + "1.2.3.4\r\n"}};

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
    const std::string noList = "There is no MANIFEST";
    // The build, and how the first thing begins that is told; the last is that there is no list.
    const std::tuple<Files, std::string, std::string> rows[] = {
        {{}, compiledIn, "There is no product-data"},
        {plain, "1.2.3.4", noList},
        // The enciphered file goes first.
        {{{"ProductData.inx", broken}, *plain.begin()}, compiledIn, "ProductData.inx: Cannot l"},
        {{{"ProductData.ini", "[Version Number]\nVersion Number=1.2.3.4\nB=2\n"}},
         "1.2.3.4\nB=2",
         "ProductData.ini: lines do not end"},
        {{{"ProductData.ini", "[Version]\r\nVersion Number=1\r\n"}},
         compiledIn,
         "ProductData.ini: no \"Version"},
        {{{"ProductData.ini", section + "1.2`3\r\n"}}, "1.2`3", "ProductData.ini: The build"}};
    for (const auto& [data, build, first] : rows) {
        SCOPED_TRACE(first);
        Files files = data;
        files["Setup.Exe"] = executable("content");
        const Json report = examine(stamped("0q", viewerName), files);
        EXPECT_EQ(report["build"], build);
        EXPECT_EQ(report["complete"], first.starts_with("There is no"));
        Json told = report["problems"];
        told.insert(told.end(), report["warnings"].begin(), report["warnings"].end());
        EXPECT_EQ(told.size(), first == noList ? 1u : 2u) << told;
        EXPECT_TRUE(told.front().get<std::string>().starts_with(first)) << told;
        EXPECT_TRUE(told.back().get<std::string>().starts_with(noList)) << told;
    }
    EXPECT_EQ(examine(stamped("0q", viewerName), plain, false)["build"], compiledIn);
}

TEST_F(MediaReport, NamesWhatIsSeldomMeant) {
    const MediaChoices deep{.directory = "D:\\" + std::string(250, 'd')};
    const std::pair<std::string, Json> cases[] = {
        {"ends without a word", examine(stamped("16", "Tavlink Bluetooth Analyzer"), {})},
        {"The title says", examine(stamped("0q", "Other"), {})},
        {"No product with id", examine(stamped("1R", "x"), {})},
        {"not a stamped installer", examine(stamped("", ""), {})},
        {"more than 259 characters", examine(stamped("0q", viewerName), {}, true, deep)},
        {"The build is 1.2.3.4, not 1.2.3.5",
         examine(stamped("0q", viewerName), plain, true, {.requiredBuild = "1.2.3.5"})},
        {"ProductData.ini on the media is not read",
         examine(stamped("0q", viewerName), plain, false)}};
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
