#include <gtest/gtest.h>

#include "tests/end_to_end/hand_over.h"
#include "tests/end_to_end/registry_fixture.h"

namespace {

constexpr const char* confirm = "Yes, Uninstall Selected Version(s)";
constexpr const char* analyzer = "Tavlink Classic Analyzer";
const HandOver analyzerHandOver{"04", "Halvick Tavlink Classic Analyzer 16.4.10002.0"};

/// Media for product 04 and older versions with uninstallers that record their run.
class OlderVersions : public testing::Test {
  protected:
    /// Registered in the order of the keys' names, which start with `order`.
    void addInstalled(const std::string& order, const std::string& name,
                      const std::string& version = "12.0.0.0") {
        layOutStandIn(uninstaller(order), "wait\t100");
        registry.addInstalled(order, name, version, uninstaller(order), media.scratch + order);
    }
    std::string uninstaller(const std::string& order) const {
        return media.scratch + order + "\\un install.exe";
    }
    InstallerRun startProduct(const std::string& code) {
        return start(media, media.installer(code));
    }

    Media media;
    RegistryFixture registry;
};

TEST_F(OlderVersions, OneIsOfferedInTheSingular) {
    addInstalled("a", "Halvick Tavlink Classic Analyzer 12");
    InstallerRun run = startProduct("04");
    const auto prompt = run.nextDialog();
    ASSERT_TRUE(prompt);
    EXPECT_EQ(prompt->title(), "Tavlink Protocol Analysis System");
    for (const char* text :
         {"We found the following version of the Tavlink Protocol Analysis System software on your "
          "computer:",
          "Would you like to uninstall it?", "Select All/ Deselect All", confirm, "No, Skip"}) {
        EXPECT_TRUE(prompt->shows(text)) << text;
    }
    EXPECT_EQ(prompt->rows(),
              (std::vector<ListRow>{{"Halvick Tavlink Classic Analyzer 12", true}}));
    prompt->click(confirm);
    choose(run, "Live Product");
    expectStarted(run, media, {uninstaller("a"), setup(media, analyzerHandOver)});
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
    InstallerRun run = startProduct("04");
    const auto prompt = run.nextDialog();
    ASSERT_TRUE(prompt);
    EXPECT_TRUE(
        prompt->shows("We found the following versions of the Tavlink Protocol Analysis System "
                      "software on your computer:"));
    EXPECT_TRUE(prompt->shows("Would you like to uninstall them?"));
    EXPECT_EQ(prompt->rows(), (std::vector<ListRow>{{"Alpha Tavlink Classic Analyzer 12", true},
                                                    {"beta Tavlink Classic Analyzer 2", true},
                                                    {"beta Tavlink Classic Analyzer 2", true},
                                                    {"Tavlink Classic Analyzer 13", true}}));
    prompt->tick(0, false);
    prompt->tick(2, false);
    DeleteFileA(uninstaller("c").c_str());
    prompt->click(confirm);
    dismissShellMessage(run);
    choose(run, "Live Product");
    // One ticked row removes every version of its name.
    expectStarted(run, media, {uninstaller("a"), uninstaller("d"), setup(media, analyzerHandOver)});
    expectOneAfterAnother(media);
}

TEST_F(OlderVersions, AreLeftAloneWhenNothingIsTickedOrThePromptIsSkipped) {
    addInstalled("a", "Tavlink Classic Analyzer 12");
    addInstalled("b", "Tavlink Classic Analyzer 13");
    for (const char* button : {confirm, "No, Skip"}) {
        SCOPED_TRACE(button);
        InstallerRun run = startProduct("04");
        const auto prompt = run.nextDialog();
        ASSERT_TRUE(prompt);
        for (const bool ticked : {false, true, false}) {
            prompt->click("Select All/ Deselect All");
            EXPECT_EQ(prompt->rows(),
                      (std::vector<ListRow>{{"Tavlink Classic Analyzer 12", ticked},
                                            {"Tavlink Classic Analyzer 13", ticked}}));
        }
        prompt->click(button);
        choose(run, "Live Product");
        expectStarted(run, media, {setup(media, analyzerHandOver)});
        media.forgetRecords();
    }
}

TEST_F(OlderVersions, OfTheWholeMakerAreOfferedByTheMultiprotocolProduct) {
    addInstalled("a", "Halvick Anything 12");
    addInstalled("b", "Tavlink Multiprotocol Analyzer 12");
    InstallerRun run = startProduct("1w");
    const auto prompt = run.nextDialog();
    ASSERT_TRUE(prompt);
    EXPECT_EQ(prompt->rows(), (std::vector<ListRow>{{"Halvick Anything 12", true}}));
    prompt->click("No, Skip");
    dismissShellMessage(run);
    expectStarted(run, media, {setup(media, {"1w", "Halvick 16.4.10002.0", "LIVE x86"})});
}

TEST_F(OlderVersions, RegisteredInHostileWaysAreSkipped) {
    addInstalled("a", std::string(254, 'x') + analyzer);
    addInstalled("b", std::string(60000, 'x') + analyzer);
    addInstalled("c", analyzer, std::string(60000, '1') + ".0.0.0");
    addInstalled("d", analyzer, "12.0.0.x");
    const std::string list = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";
    for (const DWORD type : {REG_BINARY, REG_DWORD, REG_MULTI_SZ}) {
        const std::string key = "e" + std::to_string(type);
        addInstalled(key, analyzer);
        registry.set(HKEY_LOCAL_MACHINE, list + key, "DisplayName", analyzer, type);
    }
    addInstalled("f", analyzer);
    registry.set(HKEY_LOCAL_MACHINE, list + "f", "InstallLocation", std::string(300, 'x'));
    addInstalled(std::string(100, 'g'), std::string(analyzer) + " \xC4");
    InstallerRun run = startProduct("04");
    const auto prompt = run.nextDialog();
    ASSERT_TRUE(prompt);
    EXPECT_EQ(prompt->rows(), (std::vector<ListRow>{{std::string(analyzer) + " \xC4", true}}));
    prompt->click("No, Skip");
    choose(run, "Live Product");
    expectStarted(run, media, {setup(media, analyzerHandOver)});
}

TEST_F(OlderVersions, HaveTheirProgramFoldersLeftAlone) {
    const auto addToIndex = [this](const std::string& key, const std::string& programFolder) {
        for (const char* name :
             {"Path", "Product Id", "Product Name", "Seinda", "Temp Reference"}) {
            registry.set(HKEY_LOCAL_MACHINE, key, name, "x");
        }
        registry.set(HKEY_LOCAL_MACHINE, key, "Program Folder", programFolder);
    };
    addToIndex("Software\\Halvick Test Equipment\\Products\\1",
               "HALVICK tavlink Classic Analyzer 16.4.10002.0");
    addToIndex("Software\\HVQ\\Tressle Analyzer\\7",
               "Halvick Tavlink Classic Analyzer 16.4.10002.0 2");
    InstallerRun run = startProduct("04");
    choose(run, "Live Product");
    expectStarted(run, media,
                  {setup(media, {"04", "Halvick Tavlink Classic Analyzer 16.4.10002.0 3"})});
}

}  // namespace
