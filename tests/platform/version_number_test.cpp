#include "platform/version_number.h"

#include <gtest/gtest.h>

#include "platform/field_splitter.h"

namespace {

using Fields = std::vector<std::string>;

TEST(FieldSplitter, EscapesAndEmptyFields) {
    struct {
        const char* text;
        char delimiter;
        Fields fields;
    } const cases[] = {
        {"", '.', {}},
        {".", '.', {""}},
        {"1.2.3.4.", '.', {"1", "2", "3", "4"}},
        {"1.2.3.4..", '.', {"1", "2", "3", "4", ""}},
        {"1.2.3.", '.', {"1", "2", "3"}},
        {".1.2.3", '.', {"", "1", "2", "3"}},
        {"1..3.4", '.', {"1", "", "3", "4"}},
        {"a`.b.c", '.', {"a.b", "c"}},
        {"a`bc.d", '.', {"a`bc", "d"}},
        {"a``.b", '.', {"a``", "b"}},
        {"a.b`", '.', {"a", "b`"}},
        {"a``b`c", '`', {"a`b", "c"}},
        {"a`b`", '`', {"a", "b"}},
        {"```a", '`', {"`", "a"}},
    };
    for (const auto& row : cases) {
        Fields fields = {"left over"};
        splitFields(row.text, fields, row.delimiter);
        EXPECT_EQ(fields, row.fields) << row.text;
    }
    Fields longField;
    splitFields(std::string(2500, 'x') + ".y", longField, '.');
    EXPECT_EQ(longField, (Fields{std::string(2500, 'x'), "y"}));
}

TEST(VersionNumber, FourFields) {
    struct {
        const char* text;
        std::vector<int> numbers;
    } const cases[] = {
        {"10.0.0.12", {10, 0, 0, 12}},
        {"007.1.1.1", {7, 1, 1, 1}},
        {"1.2.3.4.", {1, 2, 3, 4}},
        {"2147483647.2147483648.4294967295.4294967297", {2147483647, -2147483647 - 1, -1, 1}},
    };
    for (const auto& row : cases) {
        std::vector<int> numbers = {5};
        std::string error = "left over";
        EXPECT_TRUE(parseVersion(row.text, numbers, &error)) << row.text;
        EXPECT_EQ(numbers, row.numbers) << row.text;
        EXPECT_EQ(error, "");
    }
}

TEST(VersionNumber, RefusalsSayWhy) {
    struct {
        const char *text, *error;
    } const cases[] = {
        {"", "No version specified."},
        {"1.2.3.a", "Illegal character in version - 'a', allowable characers \".0123456789\""},
        {"1.2 .-3", "Illegal character in version - ' ', allowable characers \".0123456789\""},
        {"1.2.3",
         "Encountered 3 version fields - version must contain 4 non-empty fields delimted by '.'"},
        {"1.2.3.",
         "Encountered 3 version fields - version must contain 4 non-empty fields delimted by '.'"},
        {"1.2.3.4.5",
         "Encountered 5 version fields - version must contain 4 non-empty fields delimted by '.'"},
        {".1.2.3",
         "Version field 0 is empty - version must contain 4 non-empty fields delimted by '.'"},
        {"1..3.4",
         "Version field 1 is empty - version must contain 4 non-empty fields delimted by '.'"},
        {"1.2.3..",
         "Version field 3 is empty - version must contain 4 non-empty fields delimted by '.'"},
    };
    for (const auto& row : cases) {
        std::vector<int> numbers = {5};
        std::string error;
        EXPECT_FALSE(parseVersion(row.text, numbers, &error)) << row.text;
        EXPECT_EQ(error, row.error);
        EXPECT_TRUE(numbers.empty()) << row.text;
        EXPECT_FALSE(parseVersion(row.text, numbers)) << row.text;
    }
}

}  // namespace
