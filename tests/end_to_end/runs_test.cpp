// The command line, the release of Windows, the choice and the hand-over.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "catalogue/cipher.h"
#include "tests/end_to_end/stage.h"

namespace {

TEST(CommandLine, EveryFailureIsShownAndEndsTheRun) {
    const std::string setupUtility = media + "Setup.Exe", missing = "C:\\" + std::string(397, 'x');
    const struct {
        std::string arguments, text, icon = "error";
    } table[] = {
        {"", "Invalid command line.", "warning"},
        {"-DIR C:\\ -b\xE4h x", "\n\nInvalid argument: -b\xE4h\n"},
        {"-dir C:\\absent -dirs x", "\n\nError accessing \"C:\\absent\"."},
        {"-dir \\\\absent\\share", "\n\nError accessing \"\\\\absent\\share\"."},
        {"-dir " + missing, "\n\nError accessing \"" + missing + "\"."},
        // The folders that it would match are there.
        {"-dir \"" + scratch + "med*\"", "\n\nError accessing \"" + scratch + "med*\"."},
        {"-dir ..\\med?a", "\n\nError accessing \"..\\med?a\"."},
        {"-dir \"" + setupUtility + '"', "\n\n\"" + setupUtility + "\" is not a directory."},
        {"-installdir X -INSTALLDIR Z", "\n\nMissing directory argument."}};
    for (const auto& row : table) {
        play({"04: " + row.arguments, {box(row.text, row.icon)}, {}, row.arguments});
    }
}

TEST(CommandLine, SourceDirectoriesAreHandedOverAsTheyAre) {
    // With it the setup utility's path is as long as the shell takes, 259 characters.
    const std::string longest = scratch + std::string(249 - scratch.size(), 'm') + '\\';
    const std::string umlauts = scratch + "\xC4hnlich \xDF`\\";
    const struct {
        std::string folder, arguments, handedOver;
    } table[] = {{media, "-installdir X -dir C:\\ -DIR \"" + media + "\\\"", media},
                 {umlauts, "-dir \"" + umlauts + "\\\"", umlauts},
                 {longest, "-dir \"" + longest + "\\\"", longest},
                 {media, "-dir ..\\media", "..\\media\\"},
                 {elsewhere, "-dir .", ".\\"},
                 {media, "-dir \"\\\\?\\" + media + "\\\"", "\\\\?\\" + media}};
    for (const auto& row : table) {
        Step started = setup("0q", "Halvick Tavlink Universal Analyzer", "LIVE", "x86",
                             defaultBuild, row.handedOver);
        // A program knows its own path in full.
        started.seen.replace(1, row.handedOver.size(), row.folder);
        play({"0q: " + row.arguments, {chooseLive, started}, {setupIn(row.folder)}, row.arguments});
    }
}

// The path of the setup utility has room for 260 characters, one more than the platform takes: its
// own message and ours, or ours where it does not see the file. What is cut is shown cut.
TEST(CommandLine, TooLongASourceDirectoryIsSaidToBeSo) {
    const std::string folder = scratch + std::string(250 - scratch.size(), 'b'),
                      longer = folder + "bbbbb";
    play(
        {{"0q: a path of 260 characters",
          {chooseLive, shellMessage, {"* | OK", {"OK"}, Step::Kind::DialogOfSomePlatforms}},
          {setupIn(folder + '\\')},
          "-dir \"" + folder + '"'},
         {"0q: a path of 265 characters",
          {chooseLive,
           box("Failed to locate program installation utility: \"" + longer + "\\Setu\"", "error")},
          {setupIn(longer + '\\')},
          "-dir \"" + longer + '"'}});
}

// On the releases that Wine can report for a program.
TEST(OperatingSystem, EveryReportedReleaseMeetsItsPolicy) {
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr) {
        GTEST_SKIP() << "Windows reports no other release than its own";
    }
    const std::string refused = "refused", passed;
    // Version 5.2 is the 64-bit XP wherever the processor is a 64-bit one. This Wine has the
    // product types of win7 and win2008r2 the wrong way round.
    const std::string version52 = on64BitWindows() ? passed : "Windows Server 2003 Service Pack 2";
    const struct {
        std::string release, asksAbout, reply = "Yes";
    } table[] = {{"win20", refused},
                 {"win95", refused},
                 {"win98", refused},
                 {"winme", refused},
                 {"nt351", refused},
                 {"nt40", refused},
                 {"win2k", "Windows 2000 Service Pack 4"},
                 {"winxp", passed},
                 {"winxp64", version52},
                 {"win2003", version52},
                 {"vista", passed},
                 {"win2008", "Windows Server 2008 Service Pack 2"},
                 {"win2008", "Windows Server 2008 Service Pack 2", "No"},
                 {"win7", "Windows Server 2008 R2 Service Pack 1"},
                 {"win2008r2", passed},
                 {"win8", passed},
                 {"win81", passed},
                 {"win10", passed}};
    // Set by the script that makes a document of it.
    const char* matrix = std::getenv("RELEASE_MATRIX");
    for (const auto& [name, asksAbout, reply] : table) {
        // A product that has drivers, and a setup for each processor.
        Case run{"1m: " + name, {}, {release(name), extractionTool()}};
        if (asksAbout == refused) {
            run.steps = {
                box("This product is only supported on Windows 7 and Windows 8 operating "
                    "systems.",
                    "warning")};
        } else if (asksAbout != passed) {
            run.steps = {box("This product has not been tested on " + asksAbout +
                                 ".\n\nWould you like to continue the installation?",
                             "warning", "Yes | No", reply)};
        }
        if (asksAbout != refused && reply == "Yes") {
            if (name != "win2k") {  // the drivers do not run there
                run.steps.insert(run.steps.end(),
                                 {extracted("SerialTavlinkDrivers.fzx"), ran(unpacked)});
            }
            run.steps.insert(
                run.steps.end(),
                {chooseLive, setup("1m", "Halvick Tavlink Industrial Analyzer 16.4.10002.0",
                                   "LIVE " + processor, processor)});
        }
        const std::string seen = play(run);
        if (matrix != nullptr && reply == "Yes") {
            std::ofstream(matrix + processor, std::ios::app | std::ios::binary)
                << "release " << name << '\n'
                << seen;
        }
    }
}

const std::string live = "Live Product", all = live + " | File Viewer | Demonstration";

/// The dialog of a product that has these choices.
Step dialogOf(const std::string& product, const std::string& choices,
              const std::vector<std::string>& actions, const std::string& build = defaultBuild) {
    return {product + ' ' + build +
                " Installation | Please select the type of product to install.\nOnly the live "
                "product works with capture hardware. | " +
                choices + " | Install | Cancel | Help",
            actions};
}

TEST(HandOver, FollowsTheChoice) {
    const std::string classic = "Halvick Tavlink Classic ", setupUtility = media + "Setup.Exe";
    const std::string enter = "key 13", escape = "key 27", help = "key 112";
    play({{"04: live at once",
           {dialogOf("Tavlink Classic Analyzer", all, {"Install"}),
            setup("04", classic + "Analyzer 16.4.10002.0")}},
          {"04: demonstration, after help",
           {{"* | Help", {help, "File Viewer", "Demonstration", enter}},
            setup("0h", classic + "Demo 16.4.10002.0", "DEMO")}},
          {"1d: no demonstration",
           {dialogOf("Tavlink ZigBee Analyzer", live + " | File Viewer", {"close"})}},
          {"04: cancelled by keyboard", {{"* | Help", {"Demonstration", escape}}}},
          // As a script of the field might.
          {"0q: a choice that is not offered",
           {{"* | Help", {"id 4008", "id 1"}},
            box("This installer is invalid. Please contact Technical Support.\n\nHalvick Test "
                "Equipment\nTechnical Support\n100 Instrument Way\nHalvick, VA 22999\nUSA\nWeb: "
                "https://www.halvick.example/\nE-mail: support@halvick.example\nTelephone: +1 434 "
                "555 0100\nFax: +1 434 555 0101\n",
                "warning")}},
          {"1s: without the maker's name in front",
           {chooseLive, setup("1s", "Tavlink Near Field Analyzer 16.4.10002.0")}},
          {": no stamp", {dialogOf("", live, {"Install"}), setup("", "Halvick ")}},
          {"0q: no setup utility",
           {chooseLive,
            box("Failed to locate program installation utility: \"" + setupUtility + '"', "error")},
           {removed(setupUtility)}},
          {"0q: a setup utility that is no program",
           {chooseLive,
            shellMessage,
            {"Error | warning | Unknown ShellExecute error ! | OK", {"OK"}}},
           {file(setupUtility, "a text")}}});
}

TEST(HandOver, TakesTheBuildFromTheProductDataBesideTheProgram) {
    const std::string text = "[Version Number]\r\nVersion Number=16.4.12000.0\r\n";
    std::string damaged = encipher(text);
    damaged[damaged.size() / 2] ^= 1;
    const std::string plain = scratch + "ProductData.ini", enciphered = scratch + "ProductData.inx";
    const auto handsOver = [](const std::string& build) {
        return std::vector<Step>{
            dialogOf("Tavlink Classic Analyzer", all, {"Install"}, build),
            setup("04", "Halvick Tavlink Classic Analyzer " + build, "LIVE", "x86", build)};
    };
    play({{"04: plain",
           handsOver("16.4.12000.0"),
           {file(plain, std::string(1'000'000, '\n') + text)}},
          {"04: enciphered before plain",
           handsOver("16.4.12000.0"),
           {file(plain), file(enciphered, encipher(text))}},
          {"04: damaged before plain",
           handsOver(defaultBuild),
           {file(plain, text), file(enciphered, damaged)}}});
}

}  // namespace
