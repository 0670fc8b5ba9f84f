#include <gtest/gtest.h>

#include "tools/run_stage/stage.h"

namespace {

const std::string confirm = "Yes, Uninstall Selected Version(s)", skip = "No, Skip";
const std::string selectAll = "Select All/ Deselect All";

/// The prompt about these versions, on a list of one or of several.
Step asks(const std::string& rows, const std::vector<std::string>& actions, bool several = false) {
    return {std::string("Tavlink Protocol Analysis System | We found the following version") +
                (several ? "s" : "") +
                " of the Tavlink Protocol Analysis System software on your computer: | Would you "
                "like to uninstall " +
                (several ? "them" : "it") + "? | " + rows + " | " + selectAll + " | " + confirm +
                " | " + skip,
            actions};
}

std::string uninstaller(const std::string& key) {
    return scratch + key + "\\un install.exe";
}
/// In the order of `key`.
Given version(const std::string& key, const std::string& name,
              const std::string& number = "12.0.0.0") {
    return [=] {
        program(uninstaller(key))();
        installed(key, name, uninstaller(key), scratch + key, number)();
    };
}

TEST(OlderVersions, AreSortedAndTheTickedOnesRemovedOneAfterAnother) {
    const std::string beta = "beta Tavlink Classic Analyzer 2";
    const std::vector<Given> versions = {
        version("a", beta), version("b", "Alpha Tavlink Classic Analyzer 12"),
        version("c", "Tavlink Classic Analyzer 13"), version("d", beta),
        version("e", "Tavlink Classic Analyzer 10", "10.9.1.0"),
        version("f", "Tavlink Classic Analyzer 11", "11.0"),
        version("g", "TAVLINK Classic Analyzer 12"), version("h", "Tavlink Serial Analyzer 12"),
        // No uninstaller, and one that is no program.
        removed(uninstaller("c")), file(uninstaller("d"))};
    const std::string rows = "[x] Alpha Tavlink Classic Analyzer 12 | [x] " + beta + " | [x] " +
                             beta + " | [x] Tavlink Classic Analyzer 13";
    const std::string end = "key 35", up = "key 38", down = "key 40", blank = "key 32";
    // The program's own word comes without an owner, on top of the prompt.
    // ReactOS forgets its reason over a message of its own.
    const Step noProgram = stageSystem() == System::ReactOs ? Step{"* | OK", {"OK"}} : cannotStart;
    const auto prompt = [&](const std::vector<std::string>& actions) {
        return asks(rows, actions, true);
    };
    play({// One ticked row removes every version of its name, and what fails is passed over.
          onWindows({"04: unticked by keyboard",
                     {prompt({"columns 20,0 400,0 4", blank, down, down, blank, confirm}),
                      ran(uninstaller("a")), shellMessage, noProgram, chooseLive, classicSetup},
                     versions}),
          onWindows({"04: one by keyboard",
                     {prompt({end, blank, up, blank, up, blank, confirm}), ran(uninstaller("b")),
                      chooseLive, classicSetup},
                     versions}),
          onDescribedMachine({"04: both of one name, for each tick, the rest left alone",
                              {prompt({"Alpha Tavlink Classic Analyzer 12",
                                       "Tavlink Classic Analyzer 13", confirm}),
                               ran(uninstaller("a")), ran(uninstaller("d")), ran(uninstaller("a")),
                               ran(uninstaller("d")), chooseLive, classicSetup},
                              versions}),
          onWindows({"04: none",
                     {prompt({selectAll, "sees | [ ] Alpha", selectAll, "sees " + rows, selectAll,
                              confirm}),
                      chooseLive, classicSetup},
                     versions}),
          {"04: skipped", {prompt({skip}), chooseLive, classicSetup}, versions},
          {"04: escape", {prompt({"key 27"}), chooseLive, classicSetup}, versions},
          {"04: close box", {prompt({"close"}), chooseLive, classicSetup}, versions}});
}

TEST(OlderVersions, AreThoseOfTheProductOrOfTheMaker) {
    // The longest name that is read.
    const std::string name = std::string(234, '\xE9') + " Tavlink Classic Analyzer";
    play(
        {{"04: the longest name, and removal before a cancelled choice",
          {asks("[x] " + name, {confirm}), ran(uninstaller("a")), choose("Live Product", "Cancel")},
          {version("a", name), version("b", 'x' + name)}},
         {"1w: the maker's",
          {asks("[x] Halvick Anything 12", {skip}),
           setup("1w", "Halvick 16.4.10002.0", "LIVE x86")},
          {version("a", "Halvick Anything 12"), version("b", "HALVICK Anything 12"),
           version("c", "Tavlink Multiprotocol Analyzer 12")}}});
}

TEST(OlderVersions, HaveTheirProgramFoldersLeftAlone) {
    // The build ends in an e with an acute accent: letters beyond A to Z fold as well.
    const std::string build = "16.4.\xE9", folder = "Halvick Tavlink Classic Analyzer ";
    play(
        {"04: indexed",
         {chooseLive, setup("04", folder + build + " 3", "LIVE", "x86", build)},
         {file(scratch + "ProductData.ini", "[Version Number]\r\nVersion Number=" + build + "\r\n"),
          indexed("Software\\Halvick Test Equipment\\Products\\1",
                  "HALVICK t" + folder.substr(9) + "16.4.\xC9"),
          indexed("Software\\HVQ\\Tressle Analyzer\\7", folder + build + " 2")}});
}

}  // namespace
