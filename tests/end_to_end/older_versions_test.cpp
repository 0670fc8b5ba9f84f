#include <gtest/gtest.h>

#include "tests/end_to_end/stage.h"

namespace {

const std::string confirm = "Yes, Uninstall Selected Version(s)", skip = "No, Skip";
const std::string buttons = " | Select All/ Deselect All | " + confirm + " | " + skip;

/// The prompt about one version, and about several.
const std::string asksAboutOne =
    "Tavlink Protocol Analysis System | We found the following version of the Tavlink Protocol "
    "Analysis System software on your computer: | Would you like to uninstall it? | ";
const std::string asksAboutSeveral =
    "Tavlink Protocol Analysis System | We found the following versions of the Tavlink Protocol "
    "Analysis System software on your computer: | Would you like to uninstall them? | ";

class OlderVersions : public testing::Test {
  protected:
    /// In the order of `key`; with an uninstaller.
    void addInstalled(const std::string& key, const std::string& name,
                      const std::string& version = "12.0.0.0") {
        stage.layOut(uninstaller(key), "100");
        stage.addInstalled(key, name, version, uninstaller(key), stage.scratch + key);
    }
    std::string uninstaller(const std::string& key) const {
        return stage.scratch + key + "\\un install.exe";
    }
    std::string removed(const std::string& key) const { return Stage::ran(uninstaller(key)); }

    Stage stage{"04"};
    const std::string setup = stage.setup("04", "Halvick Tavlink Classic Analyzer 16.4.10002.0");
};

TEST_F(OlderVersions, OneIsOfferedInTheSingular) {
    // The longest name that is read.
    const std::string name = std::string(234, '\xE9') + " Tavlink Classic Analyzer";
    addInstalled("a", name);
    addInstalled("b", 'x' + name);
    stage.run({{asksAboutOne + "[x] " + name + buttons, {confirm}}, chooseLive},
              removed("a") + setup);
}

TEST_F(OlderVersions, SeveralAreSortedAndTheTickedOnesRemovedOneAfterAnother) {
    addInstalled("a", "beta Tavlink Classic Analyzer 2");
    addInstalled("b", "Alpha Tavlink Classic Analyzer 12");
    addInstalled("c", "Tavlink Classic Analyzer 13");
    addInstalled("d", "beta Tavlink Classic Analyzer 2");
    addInstalled("e", "Tavlink Classic Analyzer 10", "10.9.1.0");
    addInstalled("f", "Tavlink Classic Analyzer 11", "11.0");
    addInstalled("g", "TAVLINK Classic Analyzer 12");
    addInstalled("h", "Tavlink Serial Analyzer 12");
    DeleteFileA(uninstaller("c").c_str());
    const std::string rows =
        "[x] Alpha Tavlink Classic Analyzer 12 | [x] beta Tavlink Classic "
        "Analyzer 2 | [x] beta Tavlink Classic Analyzer 2 | [x] Tavlink "
        "Classic Analyzer 13";
    const std::string prompt = asksAboutSeveral + rows + buttons, all = "Select All/ Deselect All";
    const std::string end = "key 35", up = "key 38", blank = "key 32", down = "key 40",
                      escape = "key 27";
    const struct {
        const char* what;
        std::vector<std::string> actions;
        bool missesOne = false;
        std::string removed = {};
    } table[] = {
        // One ticked row removes every version of its name.
        {"unticked by keyboard",
         {blank, down, down, blank, confirm},
         true,
         removed("a") + removed("d")},
        {"one by keyboard",
         {all, "sees | [ ] Alpha", end, blank, up, up, up, blank, confirm},
         true,
         removed("b")},
        {"none", {all, all, "sees " + rows, all, confirm}},
        {"skipped", {skip}},
        {"escape", {escape}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.what);
        Steps steps = {{prompt, row.actions}, chooseLive};
        if (row.missesOne) {
            steps.insert(steps.begin() + 1, shellMessage);
        }
        stage.run(steps, row.removed + setup);
    }
}

TEST_F(OlderVersions, HaveTheirProgramFoldersLeftAlone) {
    // The build ends in an e with an acute accent in code page 1252; letters beyond A to Z fold as
    // well.
    const std::string build = "16.4.\xE9", folder = "Halvick Tavlink Classic Analyzer ";
    writeFile(stage.scratch + "ProductData.ini",
              "[Version Number]\r\nVersion Number=" + build + "\r\n");
    stage.addToIndex("Software\\Halvick Test Equipment\\Products\\1",
                     "HALVICK t" + folder.substr(9) + "16.4.\xC9");
    stage.addToIndex("Software\\HVQ\\Tressle Analyzer\\7", folder + build + " 2");
    stage.run({chooseLive}, stage.setup("04", folder + build + " 3", "LIVE", "x86", build));
}

TEST(OlderVersionsOfTheMaker, AreOfferedByTheMultiprotocolProduct) {
    Stage stage("1w");
    for (const char* name : {"Halvick Anything 12", "Tavlink Multiprotocol Analyzer 12"}) {
        stage.addInstalled(name, name, "12.0.0.0", "x.exe", "C:\\");
    }
    stage.run({{asksAboutOne + "[x] Halvick Anything 12" + buttons, {skip}}, shellMessage},
              stage.setup("1w", "Halvick 16.4.10002.0", "LIVE x86"));
}

}  // namespace
