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
        {"-dir", "Invalid command line.", "warning"},
        {"-installdir X -dir", "\n\nInvalid argument: Directory missing.\n"},
        {"-dir C:\\ -installdir", "\n\nInvalid argument: Directory missing.\n"},
        {"-dirs C:\\", "\n\nInvalid argument: -dirs\n"},
        {"-DIR C:\\ -b\xE4h x", "\n\nInvalid argument: -b\xE4h\n"},
        {"-dir C:\\absent -dirs x", "\n\nError accessing \"C:\\absent\"."},
        {"-dir \\\\absent\\share", "\n\nError accessing \"\\\\absent\\share\"."},
        {"-dir " + missing, "\n\nError accessing \"" + missing + "\"."},
        // The folders that it would match are there.
        {"-dir \"" + scratch + "med*\"", "\n\nError accessing \"" + scratch + "med*\"."},
        {"-dir ..\\med?a", "\n\nError accessing \"..\\med?a\"."},
        {"-dir \"" + setupUtility + '"', "\n\n\"" + setupUtility + "\" is not a directory."},
        {"-installdir X -INSTALLDIR Z", "\n\nMissing directory argument."},
    };
    for (const auto& row : table) {
        play({"arguments " + row.arguments, "04", {}, {box(row.text, row.icon)}, row.arguments});
    }
}

TEST(CommandLine, SourceDirectoriesAreHandedOverAsTheyAre) {
    // With it the setup utility's path is as long as the shell takes, 259 characters.
    const std::string longest = scratch + std::string(249 - scratch.size(), 'm');
    const struct {
        std::string folder, arguments, handedOver;
    } table[] = {
        {media, "-installdir X -dir C:\\ -DIR \"" + scratch + "media\\\\\"", media},
        {scratch + "\xC4hnlich \xDF`", "-dir \"" + scratch + "\xC4hnlich \xDF`\"",
         scratch + "\xC4hnlich \xDF`\\"},
        {longest, "-dir \"" + longest + '"', longest + '\\'},
        {media, "-dir ..\\media", "..\\media\\"},
        {elsewhere, "-dir .", ".\\"},
        {media, "-dir \"\\\\?\\" + media + "\\\"", "\\\\?\\" + media},
    };
    for (const auto& row : table) {
        Step started = setup("0q", "Halvick Tavlink Universal Analyzer", "LIVE", "x86",
                             defaultBuild, row.handedOver);
        // The program knows its path in full.
        const std::string full = row.folder + (row.folder.ends_with('\\') ? "" : "\\");
        started.seen.replace(1, row.handedOver.size(), full);
        play({"arguments " + row.arguments,
              "0q",
              {setupIn(full)},
              {chooseLive, started},
              row.arguments});
    }
}

// The path of the setup utility has room for 260 characters, one more than the platform takes: its
// own message and ours, or ours where it does not see the file. What is cut is shown cut.
TEST(CommandLine, TooLongASourceDirectoryIsSaidToBeSo) {
    const std::string folder = scratch + std::string(250 - scratch.size(), 'b'),
                      longer = folder + "bbbbb";
    play(
        {{"a path of 260 characters",
          "0q",
          {setupIn(folder + '\\')},
          {chooseLive, shellMessage, {"* | OK", {"OK"}, Step::Kind::DialogOfSomePlatforms}},
          "-dir \"" + folder + '"'},
         {"a path of 265 characters",
          "0q",
          {setupIn(longer + '\\')},
          {chooseLive,
           box("Failed to locate program installation utility: \"" + longer + "\\Setu\"", "error")},
          "-dir \"" + longer + '"'}});
}

/// A row of docs/release-matrix.md; from the run, what was started.
std::string matrixRow(const std::string& release, const std::string& policy,
                      const std::string& seen) {
    const auto found = [&seen](const std::string& start, char end) {
        const size_t at = seen.find(start);
        return at == std::string::npos ? "" : seen.substr(at, seen.find(end, at) - at);
    };
    const std::string bitness = found("-bitness=", '`');
    return "| " + release + " | " + policy + " | " + bitness.substr(bitness.find('=') + 1) + " | " +
           found("dpinst_", '"') + " |\n";
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
        std::string release, asksAbout;
    } table[] = {
        {"win20", refused},
        {"win30", refused},
        {"win31", refused},
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
        {"win7", "Windows Server 2008 R2 Service Pack 1"},
        {"win2008r2", passed},
        {"win8", passed},
        {"win81", passed},
        {"win10", passed},
    };
    // Set by the script that writes the document.
    const char* matrix = std::getenv("RELEASE_MATRIX");
    for (const auto& row : table) {
        // A product that has drivers, and a setup for each processor.
        Case run{row.release, "1m", {release(row.release), extractionTool()}};
        const auto question = [&row](const char* reply) {
            return box("This product has not been tested on " + row.asksAbout +
                           ".\n\nWould you like to continue the installation?",
                       "warning", "Yes | No", reply);
        };
        std::string policy = row.asksAbout == passed ? "passes" : "refuses";
        if (row.asksAbout == refused) {
            run.steps = {
                box("This product is only supported on Windows 7 and Windows 8 operating "
                    "systems.",
                    "warning")};
        } else {
            if (row.asksAbout != passed) {
                policy = "asks about \"" + row.asksAbout + '"';
                run.steps = {question("No")};
                play(run);
                run.steps = {question("Yes")};
            }
            if (row.release != "win2k") {  // the drivers do not run there
                run.steps.push_back(extracted("SerialTavlinkDrivers.fzx"));
                run.steps.push_back(ran(unpacked));
            }
            run.steps.push_back(chooseLive);
            run.steps.push_back(setup("1m", "Halvick Tavlink Industrial Analyzer 16.4.10002.0",
                                      "LIVE " + processor, processor));
        }
        const std::string seen = play(run);
        if (matrix != nullptr) {
            std::ofstream(matrix + processor, std::ios::app | std::ios::binary)
                << matrixRow(row.release, policy, seen);
        }
    }
}

/// The dialog of a product that has these choices.
Step dialogOf(const std::string& product, const std::string& choices,
              const std::vector<std::string>& actions) {
    return {product +
                " 16.4.10002.0 Installation | Please select the type of product to install.\nOnly "
                "the live product works with capture hardware. | " +
                choices + " | Install | Cancel | Help",
            actions};
}

TEST(HandOver, FollowsTheChoice) {
    const std::string classic = "Halvick Tavlink Classic ", all =
                                                                "Live Product | File Viewer | "
                                                                "Demonstration";
    const std::string enter = "key 13", escape = "key 27", help = "key 112";
    play({
        {"live at once",
         "04",
         {},
         {dialogOf("Tavlink Classic Analyzer", all, {"Install"}),
          setup("04", classic + "Analyzer 16.4.10002.0")}},
        {"viewer",
         "04",
         {},
         {choose("File Viewer"), setup("04", classic + "Analyzer Viewer 16.4.10002.0", "VIEW")}},
        {"demonstration, after help",
         "04",
         {},
         {{"* | Help", {help, "File Viewer", "Demonstration", enter}},
          setup("0h", classic + "Demo 16.4.10002.0", "DEMO")}},
        {"no demonstration",
         "1d",
         {},
         {dialogOf("Tavlink ZigBee Analyzer", "Live Product | File Viewer", {"close"})}},
        {"live alone",
         "0q",
         {},
         {dialogOf("Tavlink Universal Analyzer", "Live Product", {"Cancel"})}},
        {"cancelled by keyboard", "04", {}, {{"* | Help", {"Demonstration", escape}}}},
        // As a script of the field might.
        {"a choice that is not offered",
         "0q",
         {},
         {{"* | Help", {"id 4008", "id 1"}},
          box("This installer is invalid. Please contact Technical Support.\n\nHalvick Test "
              "Equipment\nTechnical Support\n100 Instrument Way\nHalvick, VA 22999\nUSA\nWeb: "
              "https://www.halvick.example/\nE-mail: support@halvick.example\nTelephone: +1 434 "
              "555 0100\nFax: +1 434 555 0101\n",
              "warning")}},
        {"without the maker's name in front",
         "1s",
         {},
         {chooseLive, setup("1s", "Tavlink Near Field Analyzer 16.4.10002.0")}},
        {"a setup for each processor",
         "07",
         {},
         {choose("File Viewer"),
          setup("07", "Halvick EtherTavlink Viewer 16.4.10002.0", "VIEW", processor)}},
        {"no stamp",
         "04",
         {stamped("", "")},
         {dialogOf("", "Live Product", {"Install"}), setup("", "Halvick ")}},
        {"a stamp in capitals",
         "04",
         {stamped("1D", "Any Name")},
         {dialogOf("Any Name", "Live Product", {"Install"}), setup("1D", "Halvick ")}},
        {"no setup utility",
         "0q",
         {removed(media + "Setup.Exe")},
         {chooseLive,
          box("Failed to locate program installation utility: \"" + media + "Setup.Exe\"",
              "error")}},
        {"a setup utility that is no program",
         "0q",
         {file(media + "Setup.Exe", "a text")},
         {chooseLive,
          shellMessage,
          {"Error | warning | Unknown ShellExecute error ! | OK", {"OK"}}}},
    });
}

TEST(HandOver, TakesTheBuildFromTheProductDataBesideTheProgram) {
    const std::string text = "[Version Number]\r\nVersion Number=16.4.12000.0\r\n";
    std::string damaged = encipher(text), comments;
    damaged[damaged.size() / 2] ^= 1;
    while (comments.size() < 1'000'000) {
        comments += "; a comment\r\n";
    }
    const struct {
        const char* what;
        std::string plain, enciphered, build;
    } table[] = {
        {"plain", comments + text, "", "16.4.12000.0"},
        {"enciphered before plain", comments, encipher(text), "16.4.12000.0"},
        {"damaged before plain", text, damaged, defaultBuild},
        {"bare line feeds", "[Version Number]\nVersion Number=16.4.1\nOther=2", "",
         "16.4.1\nOther=2"},
    };
    for (const auto& row : table) {
        Case run{row.what, "04", {file(scratch + "ProductData.ini", row.plain)}};
        if (!row.enciphered.empty()) {
            run.given.push_back(file(scratch + "ProductData.inx", row.enciphered));
        }
        // The dialog's title shows one line.
        run.steps = {chooseLive, setup("04", "Halvick Tavlink Classic Analyzer " + row.build,
                                       "LIVE", "x86", row.build)};
        play(run);
    }
}

}  // namespace
