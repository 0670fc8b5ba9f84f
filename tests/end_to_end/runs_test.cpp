// The command line, the release of Windows, the choice and the launch of the setup utility.
#include <gtest/gtest.h>

#include "catalogue/cipher.h"
#include "tools/run_stage/stage.h"

TEST(CommandLine, EveryFailureIsShownAndEndsTheRun) {
    const std::string setupUtility = media + "Setup.Exe", missing = "C:\\" + std::string(397, 'x');
    play({"04: a word too few", {box("Invalid command line.", "warning")}, {}, {"-dir"}});
    const std::pair<std::vector<std::string>, std::string> table[] = {
        {{"-DIR", "C:\\", "-b\xE4h", "x"}, "\n\nInvalid argument: -b\xE4h\n"},
        {{"-dir", "C:\\", "-dirs"}, "\n\nInvalid argument: -dirs\n"},
        {{"-dir", "C:\\", "-installdir"}, "\n\nInvalid argument: Directory missing.\n"},
        {{"-dir", "C:\\absent", "-dirs", "x"}, "\n\nError accessing \"C:\\absent\"."},
        {{"-dir", "-dir"}, "\n\nError accessing \"-dir\"."},
        {{"-dir", missing}, "\n\nError accessing \"" + missing + "\"."},
        // The folders that it would match are there.
        {{"-dir", scratch + "med*"}, "\n\nError accessing \"" + scratch + "med*\"."},
        {{"-dir", setupUtility, "-dir", "C:\\absent"},
         "\n\n\"" + setupUtility + "\" is not a directory."},
        {{"-installdir", "X", "-INSTALLDIR", "Z"}, "\n\nMissing directory argument."}};
    for (const auto& [arguments, text] : table) {
        play({"04: " + testing::PrintToString(arguments), {box(text, "error")}, {}, arguments});
    }
}

TEST(CommandLine, SourceDirectoriesArePassedOnAsTheyAre) {
    // The setup utility's path is then as long as the shell takes: 259 characters, ReactOS 258.
    const std::size_t length = stageSystem() == System::ReactOs ? 248 : 249;
    const std::string longest = scratch + std::string(length - scratch.size(), 'm') + '\\';
    const std::string umlauts = scratch + "\xC4hnlich \xDF`\\";
    const std::tuple<std::string, std::vector<std::string>, std::string, Where> table[] = {
        {media, {"-installdir", "X", "-dir", "C:\\", "-DIR", media}, media, Where::Everywhere},
        {umlauts, {"-dir", umlauts}, umlauts, Where::Everywhere},
        {longest, {"-dir", longest}, longest, Where::Everywhere},
        {media, {"-dir", "..\\media"}, "..\\media\\", Where::OnWindows},
        {elsewhere, {"-dir", "."}, ".\\", Where::OnWindows},
        {media, {"-dir", "\\\\?\\" + media}, "\\\\?\\" + media, Where::OnWindows}};
    for (const auto& [folder, arguments, passedOn, where] : table) {
        Step started = setup("0q", "Halvick Tavlink Universal Analyzer", "LIVE", "x86",
                             defaultBuild, passedOn);
        // A program knows its own path in full; Wine leaves a long path's prefix out.
        if (!passedOn.starts_with("\\\\?\\") || stageSystem() == System::Wine) {
            started.seen.replace(1, passedOn.size(), folder);
        }
        play({"0q: " + passedOn, {chooseLive, started}, {setupIn(folder)}, arguments, where});
    }
}

// The path of the setup utility has room for 260 characters, one more than the platform takes: its
// own message and ours, or ours where it does not see the file. What is cut is shown cut.
TEST(CommandLine, TooLongASourceDirectoryIsSaidToBeSo) {
    const std::string folder = scratch + std::string(250 - scratch.size(), 'b'),
                      longer = folder + "bbbbb";
    play(
        {onWindows(
             {"0q: a path of 260 characters",
              {chooseLive, shellMessage, {"* | OK", {"OK"}, Step::Kind::DialogOfSomePlatforms}},
              {setupIn(folder + '\\')},
              {"-dir", folder}}),
         {"0q: a path of 265 characters",
          {chooseLive,
           box("Failed to locate program installation utility: \"" + longer + "\\Setu\"", "error")},
          {setupIn(longer + '\\')},
          {"-dir", longer}}});
}

TEST(SetupLaunch, FollowsTheChoice) {
    const std::string classic = "Halvick Tavlink Classic ", setupUtility = media + "Setup.Exe";
    const std::string enter = "key 13", escape = "key 27", help = "key 112", tab = "move 9";
    const std::string down = "move 40";
    play({{"04: live at once",
           {dialogOf("Tavlink Classic Analyzer", allChoices, {"Install"}),
            setup("04", classic + "Analyzer 16.4.10002.0")}},
          onWindows({"04: demonstration, after help",
                     {{"* | Help", {help, "File Viewer", "Demonstration", enter}},
                      setup("0h", classic + "Demo 16.4.10002.0", "DEMO")}}),
          {"1d: no demonstration",
           {dialogOf("Tavlink ZigBee Analyzer", "Live Product | File Viewer", {"close"})}},
          {"04: cancelled by keyboard", {{"* | Help", {"Demonstration", escape}}}},
          onWindows({"04: cancelled behind the other button", {{"* | Help", {tab, tab, enter}}}}),
          // Within the choices, past the hidden one.
          onWindows({"1d: by keyboard, around and on",
                     {{"* | Help", {down, down, down, tab, enter}},
                      setup("1d", "Halvick Tavlink ZigBee Analyzer Viewer 16.4.10002.0", "VIEW")}}),
          {"1s: without the maker's name in front",
           {chooseLive, setup("1s", "Tavlink Near Field Analyzer 16.4.10002.0")}},
          {": no stamp", {dialogOf("", "Live Product", {"Install"}), setup("", "Halvick ")}},
          onWindows({"0q: a setup utility that is no program",
                     {chooseLive, shellMessage, cannotStart},
                     {file(setupUtility)}})});
}

// As a script of the field might.
TEST(SetupLaunch, ForbidsADemonstrationThatThereIsNot) {
    if (stageSystem() == System::ReactOs) {
        GTEST_SKIP() << "a click on a hidden choice never ends there: the button looks for itself "
                        "among the visible ones";
    }
    const Step refusal =
        box("This installer is invalid. Please contact Technical Support.\n\nHalvick Test "
            "Equipment\nTechnical Support\n100 Instrument Way\nHalvick, VA 22999\nUSA\nWeb: "
            "https://www.halvick.example/\nE-mail: support@halvick.example\nTelephone: +1 434 555 "
            "0100\nFax: +1 434 555 0101\n",
            "warning");
    play({onWindows(
              {"0q: a choice that is not offered", {{"* | Help", {"id 4008", "id 1"}}, refusal}}),
          onDescribedMachine(
              {"0q: a choice that is not offered", {choose("Demonstration"), refusal}})});
}

TEST(SetupLaunch, TakesTheBuildFromTheProductDataBesideTheProgram) {
    const std::string text = "[Version Number]\r\nVersion Number=16.4.12000.0\r\n";
    std::string damaged = encipher(text);
    damaged[damaged.size() / 2] ^= 1;
    const std::string plain = scratch + "ProductData.ini", enciphered = scratch + "ProductData.inx";
    const auto launches = [](const std::string& build) {
        return std::vector<Step>{
            dialogOf("Tavlink Classic Analyzer", allChoices, {"Install"}, build),
            setup("04", "Halvick Tavlink Classic Analyzer " + build, "LIVE", "x86", build)};
    };
    play({{"04: enciphered before plain",
           launches("16.4.12000.0"),
           {file(plain), file(enciphered, encipher(text))}},
          {"04: damaged before plain",
           launches(defaultBuild),
           {file(plain, text), file(enciphered, damaged)}}});
}
