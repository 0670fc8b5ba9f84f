#include <gtest/gtest.h>

#include "tests/end_to_end/hand_over.h"

namespace {

TEST(CommandLine, EveryFailureIsShownAndEndsTheRun) {
    const Media media;
    const std::string program = media.installer("04");
    const std::string file = media.path("Setup.Exe");
    const std::string missing = "C:\\" + std::string(397, 'x');
    const struct {
        std::string arguments;
        std::string text;
        WORD icon = errorIcon;
    } table[] = {
        {"", "Invalid command line.", warningIcon},
        {"-dir", "Invalid command line.", warningIcon},
        {"-installdir X -dir", "\n\nInvalid argument: Directory missing.\n"},
        {"-dir C:\\ -installdir", "\n\nInvalid argument: Directory missing.\n"},
        {"-dirs C:\\", "\n\nInvalid argument: -dirs\n"},
        {"-DIR C:\\ -b\xE4h x", "\n\nInvalid argument: -b\xE4h\n"},
        {"-dir C:\\absent", "\n\nError accessing \"C:\\absent\"."},
        {"-dir " + missing, "\n\nError accessing \"" + missing + "\"."},
        {"-dir \"" + file + '"', "\n\n\"" + file + "\" is not a directory."},
        {"-installdir X -INSTALLDIR Z", "\n\nMissing directory argument."},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.arguments);
        InstallerRun run(program, row.arguments);
        answer(run, {applicationName, row.text, row.icon, "OK"}, "OK");
        EXPECT_FALSE(run.nextDialog());
        run.awaitEnd();
    }
    EXPECT_TRUE(media.records().empty());
}

TEST(CommandLine, SourceDirectoriesAreHandedOverAsTheyAre) {
    // With it the setup utility's path is as long as the shell takes, 259 characters.
    const std::string longest(249 - std::string("C:\\end to end\\").size(), 'm');
    for (const std::string& name : {std::string("with blanks"), std::string("back`quoted`"),
                                    std::string("\xC4hnlich \xDF"), longest}) {
        SCOPED_TRACE(name);
        const Media media(name);
        InstallerRun run = start(media, media.installer("0q", "i.exe"));
        choose(run, "Live Product");
        expectStarted(run, media, {setup(media, {"0q", "Halvick Tavlink Universal Analyzer"})});
    }
}

TEST(CommandLine, OptionsComeInAnyOrderAndTheLastOneCounts) {
    const Media media;
    InstallerRun run(media.installer("0q"),
                     "-installdir X -dir C:\\ -DIR \"" + media.folder + "\\\"");
    choose(run, "Live Product");
    expectStarted(run, media, {setup(media, {"0q", "Halvick Tavlink Universal Analyzer"})});
}

// The path of the setup utility has room for 260 characters; what is cut is shown cut.
TEST(CommandLine, TooLongASourceDirectoryIsSaidToLackTheSetupUtility) {
    const Media media;
    const std::string folder = media.scratch + std::string(255 - media.scratch.size(), 'b');
    layOutStandIn(folder + "\\Setup.Exe");
    InstallerRun run(media.installer("0q"), "-dir \"" + folder + '"');
    choose(run, "Live Product");
    answer(
        run,
        {applicationName, "Failed to locate program installation utility: \"" + folder + "\\Setu\"",
         errorIcon, "OK"},
        "OK");
    expectStarted(run, media, {});
}

}  // namespace
