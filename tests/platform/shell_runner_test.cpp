#include "platform/shell_runner.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Which of the messages it is: its first mark within the text. '.' for none at all.
char mark(std::uintptr_t instance, std::uint32_t error) {
    const std::pair<const char*, char> words[] = {
        {"path", 'P'},    {"denied", 'D'},      {"not enough", 'M'}, {"not have enough", 'm'},
        {"sharing", 'S'}, {"incomplete", 'I'},  {"timed out", 'T'},  {"other DDE", 'B'},
        {"DDE", 'F'},     {"application", 'A'}, {"library", 'L'},    {"cancelled", 'C'},
        {"Unknown", '?'}};
    const char* const text = shellFailureMessage(reinterpret_cast<void*>(instance), error);
    if (text == nullptr) {
        return '.';
    }
    for (const auto& [word, letter] : words) {
        if (std::string(text).find(word) != std::string::npos) {
            return letter;
        }
    }
    return ' ';
}

TEST(ShellRunner, FailsWithTheShellsResultElseWithTheSystemsError) {
    std::string results, errors;
    for (std::uint32_t code = 0; code <= 34; ++code) {
        results += mark(code, 1223);
        errors += mark(0, code);
    }
    for (const std::uint32_t code : {1154u, 1155u, 1156u, 1157u, 1158u, 1223u, 0xFFFFFFFFu}) {
        errors += mark(42, code);
    }
    //                  0123456789012345678901234567890123 4
    EXPECT_EQ(results, "CC.PCDCCMCCCCCCCCCCCCCCCCCSITFBALCC");
    EXPECT_EQ(errors,
              "??.P?D??m???????????????????????S??"
              "?AFL?C?");
}

}  // namespace
