#include "tests/end_to_end/hand_over.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr const char* live = "Live Product";
constexpr const char* viewer = "File Viewer";
constexpr const char* demonstration = "Demonstration";

/// What tools/check_media says that the product's "Setup.Exe" is handed; empty for nothing.
std::string foretold(const std::string& code, const std::string& choice) {
    const std::string report =
        readFile(std::string(std::getenv("STAMPED_INSTALLERS")) + '/' + code + "/report.json");
    for (const char* windows : {"any", on64BitWindows() ? "64-bit" : "32-bit"}) {
        const std::string before = "{\"choice\": \"" + choice + "\", \"windows\": \"" + windows +
                                   " Windows\", \"parameters\": \"";
        const size_t found = report.find(before);
        if (found == std::string::npos) {
            continue;
        }
        const size_t start = found + before.size();
        std::string text = report.substr(start, report.find('"', start) - start);
        for (size_t at = 0; (at = text.find("\\\\", at)) != std::string::npos; ++at) {
            text.erase(at, 1);
        }
        return text;
    }
    return {};
}

TEST(HandOver, EveryChoiceReachesTheSetupUtility) {
    const std::string processor = on64BitWindows() ? "x64" : "x86";
    const struct {
        const char* code;
        const char* choice;
        HandOver expected;
        bool hasDrivers = false;
    } table[] = {
        {"04", live, {"04", "Halvick Tavlink Classic Analyzer 16.4.10002.0"}},
        {"04", viewer, {"04", "Halvick Tavlink Classic Analyzer Viewer 16.4.10002.0", "VIEW"}},
        {"04", demonstration, {"0h", "Halvick Tavlink Classic Demo 16.4.10002.0", "DEMO"}},
        {"1k", live, {"1k", "Halvick Tavlink Serial Analyzer 16.4.10002.0"}, true},
        {"1k", viewer, {"1k", "Halvick Tavlink Serial Analyzer Viewer 16.4.10002.0", "VIEW"}, true},
        {"1k", demonstration, {"0g", "Halvick Tavlink Serial Demo 16.4.10002.0", "DEMO"}, true},
        {"07", live, {"07", "Halvick EtherTavlink 16.4.10002.0", "LIVE " + processor, processor}},
        {"07", viewer, {"07", "Halvick EtherTavlink Viewer 16.4.10002.0", "VIEW", processor}},
        {"07", demonstration, {"0u", "Halvick Tavlink Ethernet Demo 16.4.10002.0", "DEMO"}},
        {"1m",
         live,
         {"1m", "Halvick Tavlink Industrial Analyzer 16.4.10002.0", "LIVE " + processor, processor},
         true},
        {"1m",
         viewer,
         {"1m", "Halvick Tavlink Industrial Analyzer Viewer 16.4.10002.0", "VIEW", processor},
         true},
        {"1m", demonstration, {"1b", "Halvick Tavlink Industrial Demo 16.4.10002.0", "DEMO"}, true},
        {"17", demonstration, {"1t", "Halvick Tavlink USB Demo 16.4.10002.0", "DEMO"}},
        {"0q", live, {"0q", "Halvick Tavlink Universal Analyzer"}},
        // A viewer-only edition and a demonstration edition as products of their own.
        {"1c", viewer, {"1c", "Halvick Tavlink Industrial Viewer 16.4.10002.0", "VIEW"}},
        {"0g", live, {"0g", "Halvick Tavlink Serial Demo 16.4.10002.0"}},
        // Without the maker's name in front.
        {"1s", live, {"1s", "Tavlink Near Field Analyzer 16.4.10002.0"}},
        // The live product without a question; the folder is the bare build.
        {"1w", nullptr, {"1w", "Halvick 16.4.10002.0", "LIVE x86"}, true},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(std::string(row.code) + ' ' + (row.choice == nullptr ? "-" : row.choice));
        const Media media;
        InstallerRun run = start(media, media.installer(row.code));
        if (row.hasDrivers) {
            dismissShellMessage(run);  // the media have no extraction tool
        }
        if (row.choice != nullptr) {
            choose(run, row.choice);
        }
        expectStarted(run, media, {setup(media, row.expected)});
        EXPECT_EQ(media.path("Setup.Exe ") +
                      foretold(row.code, row.choice == nullptr ? live : row.choice),
                  setup(media, row.expected));
    }
}

TEST(HandOver, TheDialogOffersWhatTheProductHas) {
    const struct {
        const char* code;
        const char* name;
        std::vector<std::string> furtherChoices;
    } table[] = {
        {"04", "Tavlink Classic Analyzer", {viewer, demonstration}},
        {"1d", "Tavlink ZigBee Analyzer", {viewer}},
        {"0q", "Tavlink Universal Analyzer", {}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.code);
        const Media media;
        InstallerRun run = start(media, media.installer(row.code));
        const auto dialog = run.nextDialog();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->title(), std::string(row.name) + " 16.4.10002.0 Installation");
        std::vector<std::string> expected = {
            "Please select the type of product to install.\n"
            "Only the live product works with capture hardware.",
            live, "Install", "Cancel", "Help"};
        expected.insert(expected.end(), row.furtherChoices.begin(), row.furtherChoices.end());
        std::sort(expected.begin(), expected.end());
        std::vector<std::string> shown = dialog->texts();
        std::sort(shown.begin(), shown.end());
        EXPECT_EQ(shown, expected);
        dialog->close();
        expectStarted(run, media, {});
    }
}

TEST(HandOver, ASetupUtilityThatCannotBeStartedIsReported) {
    const Media media;
    const std::string setup = media.path("Setup.Exe");
    const struct {
        const char* what;
        Box expected;
    } table[] = {
        {"a text", {"Error", "Unknown ShellExecute error !", warningIcon, "OK"}},
        {nullptr,
         {applicationName, "Failed to locate program installation utility: \"" + setup + '"',
          errorIcon, "OK"}},
    };
    for (const auto& row : table) {
        DeleteFileA(setup.c_str());
        if (row.what != nullptr) {
            writeFile(setup, row.what);
        }
        InstallerRun run = start(media, media.installer("0q"));
        choose(run, live);
        if (row.what != nullptr) {
            dismissShellMessage(run);
        }
        answer(run, row.expected, "OK");
        EXPECT_FALSE(run.nextDialog());
    }
}

}  // namespace
