#include "tools/desk/media_report.h"

#include <gtest/gtest.h>

#include <map>

#include "app/stamped_identity.h"
#include "catalogue/cipher.h"

namespace {

std::string stamped(std::string code, std::string name) {
    code.resize(sizeof StampedIdentity::productCode);
    name.resize(sizeof StampedIdentity::productName);
    return "MZ" + std::string(stampMarker, sizeof stampMarker) + code + name;
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
     {"Live Product|any Windows"}},
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
    {"no installer", "MZ", {}, "", "", {}, {"The executable is not a stamped"}, {}},
    {"another letter case", stamped("1R", "L"), {}, compiledIn, "ends silently", {}, {""}, {}},
};

TEST(MediaReport, TellsWhatTheInstallerWillDo) {
    for (const Case& row : table) {
        SCOPED_TRACE(row.what);
        const auto onMedia = [&row](const std::string& name) { return row.folder.contains(name); };
        const MediaReport report = examineMedia(
            row.installer,
            [&](const std::string& name) {
                return onMedia(name) ? std::optional(row.folder.at(name)) : std::nullopt;
            },
            onMedia, "E:\\m");
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

TEST(MediaReport, IsPlainAsJson) {
    MediaReport report;
    report.title = "a\"b\\c\n\xE4";
    EXPECT_NE(asJson(report).find("\"title\": \"a\\\"b\\\\c\\u000a\\u00e4\""), std::string::npos);
}

}  // namespace
