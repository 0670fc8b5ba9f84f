#include "platform/version_number.h"

#include <gtest/gtest.h>

TEST(FieldSplitter, EscapesAndEmptyFields) {
    const std::string longText(2500, 'x');
    struct {
        char delimiter;
        std::string text, fields;
    } const cases[] = {
        {'.', "", ""},
        {'.', ".", "[]"},
        {'.', "1.2.3.4.", "[1][2][3][4]"},
        {'.', "1.2..", "[1][2][]"},
        {'.', ".1.2", "[][1][2]"},
        {'.', "1..3", "[1][][3]"},
        {'.', "a`.b.c", "[a.b][c]"},
        {'.', "a`bc.d", "[a`bc][d]"},
        {'.', "a``.b", "[a``][b]"},
        {'.', "a.b`", "[a][b`]"},
        {'`', "a``b`c", "[a`b][c]"},
        {'`', "a`b`", "[a][b]"},
        {'`', "```a", "[`][a]"},
        {'.', longText + ".y", '[' + longText + "][y]"},
    };
    for (const auto& row : cases) {
        std::vector<std::string> fields = {"left over"};
        splitFields(row.text, fields, row.delimiter);
        std::string joined;
        for (const std::string& field : fields) {
            joined += '[' + field + ']';
        }
        EXPECT_EQ(joined, row.fields) << row.text;
    }
}

TEST(VersionNumber, HasFourFieldsOrSaysWhyNot) {
    const std::string rule = " - version must contain 4 non-empty fields delimted by '.'";
    const std::string allowed = ", allowable characers \".0123456789\"";
    struct {
        const char* text;
        std::vector<int> numbers;
        std::string error = "";
    } const cases[] = {
        {"10.0.0.12", {10, 0, 0, 12}},
        {"007.1.1.1", {7, 1, 1, 1}},
        {"1.2.3.4.", {1, 2, 3, 4}},
        {"2147483647.2147483648.4294967295.4294967297", {2147483647, -2147483647 - 1, -1, 1}},
        {"", {}, "No version specified."},
        {"1.2.3.a", {}, "Illegal character in version - 'a'" + allowed},
        {"1.2 .-3", {}, "Illegal character in version - ' '" + allowed},
        {"1.2.3", {}, "Encountered 3 version fields" + rule},
        {"1.2.3.", {}, "Encountered 3 version fields" + rule},
        {"1.2.3.4.5", {}, "Encountered 5 version fields" + rule},
        {".1.2.3", {}, "Version field 0 is empty" + rule},
        {"1..3.4", {}, "Version field 1 is empty" + rule},
        {"1.2.3..", {}, "Version field 3 is empty" + rule},
    };
    for (const auto& row : cases) {
        std::vector<int> numbers = {5};
        std::string error = "left over";
        EXPECT_EQ(parseVersion(row.text, numbers, &error), row.error.empty()) << row.text;
        EXPECT_EQ(numbers, row.numbers) << row.text;
        EXPECT_EQ(error, row.error);
        EXPECT_EQ(parseVersion(row.text, numbers), row.error.empty());
    }
}
