#include "app/messages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "app/command_line.h"
#include "app/environment.h"
#include "app/install_log.h"
#include "catalogue/program_texts.h"
#include "desk/computer/described_machine.h"
#include "platform/ansi_text.h"
#include "platform/shell_runner.h"
#include "ui/ask_uninstall_dialog.h"

namespace {

using Texts = std::set<std::string>;

std::string contentOf(const std::string& path) {
    std::ifstream file(PROJECT_FOLDER "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// On one line, as the guide has it.
std::string onOneLine(std::string text) {
    text = replaceAll(replaceAll(text, "\r", "", false), "\n", " ", false);
    text = replaceAll(text, "  ", " ", false);
    const std::size_t start = text.find_first_not_of(' ');
    return text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

/// What stands between the quotes.
Texts quotedTexts(const std::string& document, const std::string& opening,
                  const std::string& closing) {
    Texts texts;
    for (std::size_t start = 0; (start = document.find(opening, start)) != std::string::npos;) {
        start += opening.size();
        const std::size_t end = document.find(closing, start);
        if (end != start) {
            texts.insert(onOneLine(document.substr(start, end - start)));
        }
        start = end + closing.size();
    }
    return texts;
}

/// Of every message, with "…" for what differs from run to run.
Texts programTexts() {
    Texts texts;
    const auto add = [&texts](const std::string& text) { texts.insert(onOneLine(text)); };
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{},
                                               {"…", "…"},
                                               {"-installdir", "…"},
                                               {"-dir", "…", "-dir"},
                                               {"-dir", "gone"},
                                               {"-dir", "file"}}) {
        CommandLine commandLine;
        std::vector<std::string> arguments = {"Install.exe"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        DescribedMachine machine;
        machine.files["file"] = {};
        machine.files["…"] = {.kind = PathKind::Directory};
        const std::string text = parseCommandLine(arguments, machine, commandLine)->text;
        add(replaceAll(replaceAll(text, "gone", "…", false), "file", "…", false));
    }
    for (int code = -3; code < 30; ++code) {
        if (const auto message = environmentPolicy(true, code, "…").message) {
            add(message->text);
        }
    }
    for (std::uint32_t code = 0; code < 2000; ++code) {
        for (const char* text :
             {shellFailureMessage({.instance = code}), shellFailureMessage({.lastError = code})}) {
            if (text != nullptr) {
                add(text);
            }
        }
    }
    for (const std::size_t count : {1u, 2u}) {
        add(uninstallPromptTexts(count).found);
        add(uninstallPromptTexts(count).question);
    }
    const std::string logLine = copyFailedLogLine({}, "…", "…", 5);
    add(logLine.substr(logLine.find("CopyFile")));
    add(environmentPolicy(false, 0, "").message->text);
    add(couldNotStopMessage({"…", "", "…"}, 258).text);
    add(driversFailedMessage("…", "…").text);
    add(installTitle("…", "…"));
    add(invalidInstallerMessage("").text);  // without whom to ask
    add(setupMissingMessage("…").text);
    add(readProgramTexts().hardwarePrompt);
    return texts;
}

// The guide is the second home of every text: there “…” hold a text of the program, and support
// searches for it.
TEST(Message, TextsAreThoseOfTheFieldGuide) {
    if (contentOf("docs/field-guide.md").empty()) {
        GTEST_SKIP() << "the documents are not at hand, as on another machine";
    }
    const Texts guide = quotedTexts(contentOf("docs/field-guide.md"), "“", "”");
    const Texts resources =
        quotedTexts(contentOf("ui/installer.rc") + contentOf("ui/dialog_texts.h"), "\"", "\"");
    const Texts program = programTexts();
    for (const std::string& text : program) {
        EXPECT_TRUE(guide.contains(text)) << "the guide lacks: " << text;
    }
    for (const std::string& text : guide) {
        EXPECT_TRUE(program.contains(text) || resources.contains(text))
            << "no text of the program: " << text;
    }
}

TEST(Message, TitleEndsAfter260Characters) {
    EXPECT_EQ(installTitle("Name", std::string(300, '1')), "Name " + std::string(255, '1'));
}

}  // namespace
