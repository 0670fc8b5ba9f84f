#include <gtest/gtest.h>

#include "tests/end_to_end/stage.h"

namespace {

constexpr const char* universal = "Halvick Tavlink Universal Analyzer";

TEST(CommandLine, EveryFailureIsShownAndEndsTheRun) {
    const Stage stage("04");
    const std::string file = stage.path("Setup.Exe");
    const std::string missing = "C:\\" + std::string(397, 'x');
    const struct {
        std::string arguments, text, icon = "error";
    } table[] = {
        {"", "Invalid command line.", "warning"},
        {"-dir", "Invalid command line.", "warning"},
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
        stage.run(row.arguments, {box(row.text, row.icon)}, "");
    }
}

TEST(CommandLine, SourceDirectoriesAreHandedOverAsTheyAre) {
    // With it the setup utility's path is as long as the shell takes, 259 characters.
    const std::string longest(249 - std::string("C:\\end to end\\").size(), 'm');
    for (const std::string& name : {std::string("with blanks"), std::string("back`quoted`"),
                                    std::string("\xC4hnlich \xDF"), longest}) {
        SCOPED_TRACE(name);
        const Stage stage("0q", name);
        const std::string expected = stage.setup("0q", universal);
        stage.run({chooseLive}, expected);
        // Options come in any order, and the last one counts.
        stage.run("-installdir X -dir C:\\ -DIR \"" + stage.folder + "\\\"", {chooseLive},
                  expected);
    }
}

// The path of the setup utility has room for 260 characters, one more than the platform takes: its
// own message, or ours where it does not see the file. What is cut is shown cut.
TEST(CommandLine, TooLongASourceDirectoryIsSaidToBeSo) {
    const Stage stage("0q");
    for (const size_t length : {250, 255}) {
        SCOPED_TRACE(length);
        const std::string folder = stage.scratch + std::string(length - stage.scratch.size(), 'b');
        stage.layOut(folder + "\\Setup.Exe");
        stage.run(
            "-dir \"" + folder + '"',
            {chooseLive, length == 250 ? shellMessage
                                       : box("Failed to locate program installation utility: \"" +
                                                 folder + "\\Setu\"",
                                             "error")},
            "");
    }
}

}  // namespace
