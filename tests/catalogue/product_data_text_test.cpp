#include <gtest/gtest.h>

#include "catalogue/cipher.h"
#include "catalogue/product_data_file.h"
#include "platform/files.h"

using Values = ValueParts;

TEST(ProductDataText, IsPlainOrEncipheredAndHasCommentLines) {
    struct {
        std::optional<std::string> content;
        bool enciphered;
        const char *text, *error;
    } const cases[] = {
        {"a\r\n;b=1\r\nc;d\r\n", false, "a\r\nc;d\r", ""},
        {" ;a\n;\n\nb", false, " ;a\n\nb", ""},
        {";a", false, "", ""},
        {"a\n;b", false, "a", ""},
        {"\n", false, "", ""},
        {"", false, "", ""},
        {encipher(";c\r\na=1\r\n"), true, "a=1\r", ""},
        {"a=1", true, "", "Cannot load product data - The text is not enciphered."},
        {std::nullopt, true, "", "Cannot load product data - The file cannot be read."},
        {std::nullopt, false, "", "Cannot load product data - The file cannot be read."},
    };
    for (const auto& row : cases) {
        std::string text, error;
        EXPECT_EQ(productDataText(row.content, row.enciphered, text, error), *row.error == '\0');
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(error, row.error);
    }
}

TEST(ProductDataText, ReadsTheVersionSection) {
    struct {
        const char* text;
        Values values;  // empty: not read
    } const cases[] = {
        {"[Version Number]\r\nVersion Number=16.4.1\r\nOther=2\r",
         {{"Version Number", "16.4.1"}, {"Other", "2"}}},
        {"x[version NUMBER]a = b=c \r\n\t\r\n;d=1\r\r\n", {{"a ", " b=c "}, {";d", "1"}}},
        {"[Version Number]\nVersion Number=16.4.1\nOther=2\n",
         {{"Version Number", "16.4.1\nOther=2"}, {"16.4.1\nOther", "2"}}},
        {"[Version Number]\r\na=1\r\nb= 2\nc=3\n", {{"a", "1"}, {"b", " 2\nc=3"}, {" 2\nc", "3"}}},
        {"[Version Number]\r\na=1\r\na=2\r\nA=3", {{"a", "1"}, {"A", "3"}}},
        {"[Version Number]\r\na=1[2\r\nb=3", {{"a", "1"}}},
        {"[Version Number]\r\na=1\r\n[Other]\r\nb=2\r\n[Version Number]\r\nc=3", {{"a", "1"}}},
        {"[Version Number]\r\na=\r\nb", {{"a", ""}}},
        {"[Version Number]=", {{"", ""}}},
        {"[Version Number]a=1\rb=2\rc=", {{"a", "1"}, {"b", "2"}, {"c", ""}}},
        {"[Version Number]\r\n \t\r\n", {}},
        {"[Version Number]\r\n[Other]\r\na=1", {}},
        {"[Version]\r\na=1", {}},
        {"", {}},
    };
    for (const auto& row : cases) {
        Values values{{"old", "1"}};
        EXPECT_EQ(readVersionSection(row.text, values), !row.values.empty()) << row.text;
        EXPECT_EQ(values, row.values.empty() ? (Values{{"old", "1"}}) : row.values) << row.text;
    }
    Values values{{"old", "1"}};
    EXPECT_FALSE(readVersionSection("[Version Number]\r\nno value", values));
    EXPECT_TRUE(values.empty());
}

// Each of these would take minutes if any step looked at the rest of the text once per line or key.
TEST(ProductDataText, TakesTimeInProportionToTheText) {
    constexpr std::size_t size = 200'000;
    std::string pairs;
    for (std::size_t key = 0; key < size / 8; ++key) {
        pairs += std::to_string(key) + "=\n";
    }
    for (const std::string& content : {std::string(size, '\n'), std::string(size, '\0'),
                                       std::string(size, '='), std::string(size, '['), pairs}) {
        Values values;
        std::ignore = readVersionSection(
            withoutComments(std::string(versionSectionHeader) + content), values);
        EXPECT_LE(values.size(), size);
    }
}

TEST(ProgramDirectory, EndsInTheLastSeparator) {
    const std::string longest = "\\" + std::string(254, 'd') + "\\";
    const std::pair<std::string, std::string> cases[] = {
        {"C:\\media\\x\\installer.exe", "C:\\media\\x\\"},
        {"\\\\server\\share\\installer.exe", "\\\\server\\share\\"},
        {"C:\\a/b.exe", "C:\\a/"},
        {"C:installer.exe", "C:"},
        {"installer.exe", ""},
        {"C:", "C:"},
        {"C:" + longest + "i.exe", "C:" + longest},
        {"C:\\" + longest + "i.exe", ""},
    };
    for (const auto& [path, directory] : cases) {
        EXPECT_EQ(directoryOfProgram(path), directory);
    }
}
