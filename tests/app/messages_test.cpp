#include "app/messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "catalogue/program_texts.h"
#include "platform/ansi_text.h"

namespace {

using Texts = std::set<std::string>;

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// On one line, as the guide has it.
std::string onOneLine(std::string text) {
    for (const char* end : {"\r", "\n"}) {
        text = replaceAll(text, end, " ", false);
    }
    while (text.find("  ") != std::string::npos) {
        text = replaceAll(text, "  ", " ", false);
    }
    return text;
}

/// The parts of a text between what differs from run to run, where they make a sentence: three
/// words and no sign of a format, a path or a command.
void addParts(Texts& texts, std::string text, const std::vector<std::string>& gaps) {
    for (const std::string& gap : gaps) {
        text = replaceAll(text, gap, "\1", false);
    }
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\1', start), text.size());
        std::string part = onOneLine(text.substr(start, end - start));
        part.erase(0, part.find_first_not_of(" .\""));
        part.erase(part.find_last_not_of(" \"") + 1);
        if (std::count(part.begin(), part.end(), ' ') > 1 &&
            part.find_first_of("%\\") == std::string::npos) {
            texts.insert(part);
        }
        start = end + 1;
    }
}

/// Of the string literals of a source, joined where they stand beside one another.
Texts literalsOf(const std::string& source) {
    Texts texts;
    std::string text;
    for (std::size_t at = 0; at < source.size(); ++at) {
        if (source.compare(at, 2, "//") == 0 || source.compare(at, 8, "#include") == 0) {
            at = std::min(source.find('\n', at), source.size() - 1);
        } else if (source[at] == '"') {
            for (++at; at < source.size() && source[at] != '"'; ++at) {
                const bool escaped = source[at] == '\\';
                at += escaped ? 1 : 0;
                text += escaped && source[at] == 'n' ? '\n' : source[at];
            }
        } else if (source.compare(at, 3, "'\"'") == 0) {
            at += 2;
        } else if (std::string(" \n").find(source[at]) == std::string::npos) {
            addParts(texts, text, {"%s", "%d"});
            text.clear();
        }
    }
    return texts;
}

/// Every sentence in the code that a user may meet, wherever it is.
Texts programTexts() {
    const std::filesystem::path project = PROJECT_FOLDER "/";
    Texts texts = literalsOf(contentOf(project / "platform/shell_runner.cpp"));
    for (const char* folder : {"app", "drivers", "ui"}) {
        for (const auto& entry : std::filesystem::directory_iterator(project / folder)) {
            if (const auto kind = entry.path().extension(); kind == ".cpp" || kind == ".h") {
                texts.merge(literalsOf(contentOf(entry.path())));
            }
        }
    }
    addParts(texts, readProgramTexts().hardwarePrompt, {});
    return texts;
}

/// What the guide has between “ and ”.
Texts guideTexts(const std::string& guide) {
    const std::string opening = "“", closing = "”";
    Texts texts;
    for (std::size_t start = 0; (start = guide.find(opening, start)) != std::string::npos;) {
        start += opening.size();
        addParts(texts, guide.substr(start, guide.find(closing, start) - start), {"…", "258", "5"});
    }
    return texts;
}

// The guide is the second home of every text, and support searches for it.
TEST(Message, TextsAreThoseOfTheFieldGuide) {
    const std::string guide = onOneLine(contentOf(PROJECT_FOLDER "/docs/field-guide.md"));
    if (guide.empty()) {
        GTEST_SKIP() << "the documents are not at hand, as on another machine";
    }
    const Texts program = programTexts();
    for (const std::string& text : program) {
        EXPECT_NE(guide.find(text), std::string::npos) << "the guide lacks: " << text;
    }
    for (const std::string& text : guideTexts(guide)) {
        EXPECT_TRUE(program.contains(text)) << "no text of the program: " << text;
    }
}

TEST(Message, TitleEndsAfter260Characters) {
    EXPECT_EQ(installTitle("Name", std::string(300, '1')), "Name " + std::string(255, '1'));
}

}  // namespace
