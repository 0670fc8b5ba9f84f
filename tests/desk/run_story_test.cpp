// What the comparison with the real executable cannot bring about: other machines, missing files.
#include "desk/computer/run_story.h"

#include <gtest/gtest.h>

#include "desk/page/story_page.h"
#include "desk/page/story_text.h"

namespace {

Machine machineOf(const std::string& description) {
    Machine machine;
    std::string error;
    const auto noFile = [](const std::string&) { return std::nullopt; };
    EXPECT_TRUE(readMachine(description, noFile, {}, machine, error)) << error;
    return machine;
}

RunStory story(const std::string& code, const Machine& machine, const std::string& missing = "") {
    CProductData catalogue;
    const auto holds = [missing](std::string_view name) { return name != missing; };
    return tellRun({code, "Name", "D:\\", holds}, catalogue, machine);
}

TEST(RunStory, TellsEachWay) {
    const std::string viewer =
        R"({"installed": [{"DisplayName": "Bluetooth Protocol Viewer", "DisplayVersion": "12.0.0.0",
            "UninstallString": "\"C:\\v\\setup.exe\" -remove", "InstallLocation": "C:\\v"}]})";
    const struct {
        const char* what;
        std::string code, machine, missing;
        std::vector<std::string> parts;  ///< of the text, in their order
    } cases[] = {
        {"no administrator",
         "04",
         R"({"administrator": false})",
         "",
         {"You must be logged in as the Administrator", "\"OK\": the run ends",
          "the user is no administrator"}},
        {"refused",
         "04",
         R"({"windows": "Windows NT 4.0"})",
         "",
         {"only supported on Windows 7 and Windows 8", "this Windows is refused"}},
        {"a later release",
         "04",
         R"({"windows": "Windows 11"})",
         "",
         {"Windows 8, 64-bit (code 18)"}},
        {"silent", "16", "{}", "", {"The run ends here without a word"}},
        {"the live product alone",
         "1w",
         "{}",
         "",
         {"runs  D:\\flatten.exe -fzx \"D:\\CorvaneTavlinkDrivers.fzx\" -fzxkey ... -rep "
          "\"D:\\report.txt\" -exdir \"C:\\Program Files (x86)\\Halvick Test System II\\Drivers\"",
          "...\\dpinst_64.exe", "without a question"}},
        {"no drivers for it",
         "1w",
         R"({"windows": "Windows 2000"})",
         "",
         {"CorvaneTavlinkDrivers.fzx are not for this Windows", "Yes", "-type=LIVE x86`"}},
        {"no extraction tool",
         "1k",
         "{}",
         "flatten.exe",
         {"missing on the media", "dpinst_64.exe"}},
        {"a viewer goes",
         "1Q",
         viewer,
         "",
         {"stops  C:\\v\\Executables\\Core\\qmx.exe", "copies  D:\\UninstallQmx.exe",
          "to C:\\v\\UninstallQmx.exe", "runs  C:\\v\\UninstallQmx.exe\n", "-pf=Bluetooth SIG`"}},
        {"by its own uninstaller",
         "1Q",
         viewer,
         "UninstallQmx.exe",
         {"stops  C:\\v\\", "runs  \"C:\\v\\setup.exe\" -remove\n"}},
        {"no setup utility",
         "0q",
         "{}",
         "Setup.Exe",
         {"Live Product", "error icon",
          "Failed to locate program installation utility: \"D:\\Setup.Exe\""}}};
    for (const auto& row : cases) {
        const std::string text = storyAsText(story(row.code, machineOf(row.machine), row.missing));
        std::size_t at = 0;
        for (const std::string& part : row.parts) {
            at = text.find(part, at);
            ASSERT_NE(at, std::string::npos) << row.what << ": no \"" << part << "\" in\n" << text;
        }
    }
}

TEST(RunStory, IsShownWithoutItsTextsBecomingMarkup) {
    const Machine machine = machineOf(
        R"({"installed": [{"DisplayName": "<b>Tavlink Classic Analyzer & \"é\"",
            "DisplayVersion": "12.0.0.0", "UninstallString": "x", "InstallLocation": "y"}]})");
    const std::string page = storyPage({story("04", machine)}, machine);
    EXPECT_NE(page.find("&lt;b&gt;Tavlink Classic Analyzer &amp; &quot;é&quot;"),
              std::string::npos);
    EXPECT_EQ(page.find("<b>Tavlink"), std::string::npos);
    for (const char* loaded : {"<script", "src=", "@import", "url(", "http:", "https:"}) {
        EXPECT_EQ(page.find(loaded), std::string::npos) << loaded;
    }
}

}  // namespace
