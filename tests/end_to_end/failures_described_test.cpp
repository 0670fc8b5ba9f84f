// What goes wrong in the middle of a run, and what the run says and does then.
#include <gtest/gtest.h>

#include "tools/run_stage/stage_described.h"
#include "tools/run_stage/viewers.h"

namespace {

constexpr std::uint32_t accessDenied = 5, badFormat = 193, cancelled = 1223, timeout = 258;

/// A program of this path that does not start.
Given refused(const std::string& path, std::uint32_t error) {
    return [=] {
        program(path)();
        machine([=](DescribedMachine& described) {
            described.programs[path].failure = StartResult{.started = false, .lastError = error};
        })();
    };
}
const Step denied{
    "Error | warning | The operating system denied access to the specified file. | OK", {"OK"}};

TEST(Failures, EndTheRunBeforeAnythingIsInstalled) {
    const Step notAdministrator =
        box("You must be logged in as the Administrator, or be a member of the Administrator Group "
            "in order to install this product.\n\nPlease log in as an Administrator and retry this "
            "installation.\n\nYou do not need to be an Administrator to run the product.",
            "warning");
    const Given noAdministrator =
        machine([](DescribedMachine& described) { described.administrator = false; });
    play(
        {{"04: no administrator, on a release that would be refused",
          {notAdministrator},
          {release("Windows 95"), noAdministrator}},
         {"1q: no administrator, and no media",
          {box("\n\nMissing directory argument.", "error")},
          {noAdministrator},
          {"-installdir", "x", "-installdir", "y"}},
         {"04: a release that does not tell",
          {box("Invalid operating system detected.", "error")},
          {machine(
              [](DescribedMachine& described) { described.facts.queryError = accessDenied; })}},
         {"04: a release with a name that is too long",
          {box("Memory allocation failure during operating system detection.", "error")},
          {machine([](DescribedMachine& described) {
              described.facts.servicePack = std::string(300, 's');
          })}},
         {"1w: asked about, and declined",
          {box("This product has not been tested on Windows 2000 Service Pack 4.\n\nWould you like "
               "to continue the installation?",
               "warning", "Yes | No", "No")},
          {release("win2k"), extractionTool()}}});
}

TEST(ProductData, ThatComeLateAreReadAgain) {
    static const DescribedFile lateData{.content =
                                            "[Version Number]\r\nVersion Number=1.2.3.4\r\n"};
    const Given withTheFirstDialog = machine([](DescribedMachine& described) {
        described.user = [&described](const ShownDialog&) {
            described.files[scratch + "ProductData.ini"] = lateData;
            return std::vector<std::string>();
        };
    });
    const auto chosen = [](const std::string& build) {
        return dialogOf("Tavlink Classic Analyzer", allChoices, {"Install"}, build);
    };
    const Step started =
        setup("04", "Halvick Tavlink Classic Analyzer 1.2.3.4", "LIVE", "x86", "1.2.3.4");
    play({{"04: with the choice", {chosen(defaultBuild), started}, {withTheFirstDialog}},
          {"04: with the question about the release",
           {{"* | Yes | No", {"Yes"}}, chosen("1.2.3.4"), started},
           {release("win2k"), withTheFirstDialog}},
          {"1q: from an older viewer's uninstaller",
           inOrder({replaced("a"), {viewerSetup("1.2.3.4")}}),
           {newUninstaller, old("a", viewer), machine([](DescribedMachine& described) {
                described.programs[location("a") + "\\UninstallQmx.exe"].writes = {
                    {scratch + "ProductData.ini", lateData}};
            })}}});
}

TEST(Failures, OfOtherProgramsArePassedOverWithAWord) {
    const std::string uninstaller = scratch + "old.exe";
    const Step prompt{"* | No, Skip", {"Yes, Uninstall Selected Version(s)"}};
    play({{"04: an uninstaller that is refused, and one behind it",
           {prompt, denied, ran(scratch + "next.exe"), chooseLive, classicSetup},
           {refused(uninstaller, accessDenied), program(scratch + "next.exe"),
            installed("a", "A Tavlink Classic Analyzer", uninstaller),
            installed("b", "B Tavlink Classic Analyzer", scratch + "next.exe")}},
          {"1k: an extraction tool that is refused, with a report from before",
           {{"Error | warning | Operation cancelled by user. | OK", {"OK"}},
            ran(unpacked),
            chooseLive,
            setup("1k", "Halvick Tavlink Serial Analyzer 16.4.10002.0")},
           {refused(media + "flatten.exe", cancelled),
            file(media + "report.txt", "\"sub folder\\" + driverInstaller), program(unpacked)}},
          {"04: a setup utility that is refused",
           {chooseLive, cannotStart},
           {refused(media + "Setup.Exe", badFormat)}}});
}

TEST(Failures, OfAViewersRemoval) {
    const auto copyFails = [](const std::string& key) {
        return machine([=](DescribedMachine& described) {
            described.copyErrors[location(key) + "\\UninstallQmx.exe"] = accessDenied;
            described.time = {2026, 1, 2, 3, 4, 5};
        });
    };
    const std::string target = location("a") + "\\UninstallQmx.exe";
    const Step log = logged("2026-01-02 03:04:05 Version 16.4.10002.0 CopyFile from \"" + media +
                            "UninstallQmx.exe\" to \"" + target + "\" failed - 5");
    const Step copy = copiedOver(media + "UninstallQmx.exe", target);
    const Step wait{marker("a"), {}, Step::Kind::WaitForFile};
    const auto old = [](const std::string& arguments) {
        return ran(location("a") + "\\setup.exe", arguments);
    };
    play(
        {{"1q: a copy that fails, and a marker that stays",
          {stopped(analyser("a")), copy, log, old("-remove \"a b\""), wait, viewerSetup("1.2.3.4")},
          {newUninstaller, ::old("a", viewer, " -remove \"a b\""), copyFails("a"),
           file(scratch + "ProductData.ini", "[Version Number]\r\nVersion Number=1.2.3.4\r\n")}},
         // Kept: the arguments start at a fixed distance behind the name.
         {"1q: cut by position, and no marker",
          {stopped(analyser("a")), copy, log, old("x -remove"), viewerSetup()},
          {newUninstaller, ::old("a", viewer, "/x -remove"), removed(marker("a")), copyFails("a")}},
         {"1q: a copy of the second viewer that cannot be stopped",
          inOrder({replaced("a"),
                   {stopped(analyser("b")),
                    box("Could not stop \"" + location("b") +
                            "\" - 258. Please close all copies of Bluetooth Protocol Viewer and "
                            "restart the installation.",
                        "warning")}}),
          {newUninstaller, ::old("a", suiteViewer), ::old("b", viewer),
           machine([](DescribedMachine& described) {
               described.stopResults[analyser("b")] = timeout;
           })}}});
}

}  // namespace
