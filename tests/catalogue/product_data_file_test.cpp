#include "catalogue/product_data_file.h"

#include "catalogue/cipher.h"
#include "tests/rows.h"

TEST(ProductDataFile, IsPlainOrEncipheredAndHasCommentLines) {
    expectRows<std::tuple<std::optional<std::string>, bool>, std::string>(
        {{{"a\r\n;b=1\r\nc;d\r\n", false}, "a\r\nc;d\r"},
         {{" ;a\n;\n\nb", false}, " ;a\n\nb"},
         {{";a", false}, ""},
         {{"a\n;b", false}, "a"},
         {{encipher(";c\r\na=1\r\n"), true}, "a=1\r"},
         {{"a=1", true}, "Cannot load product data - The text is not enciphered."},
         {{std::nullopt, false}, "Cannot load product data - The file cannot be read."}},
        [](const std::optional<std::string>& content, bool enciphered) {
            std::string text, error;
            const bool readable = productDataText(content, enciphered, text, error);
            EXPECT_EQ(readable, error.empty());
            return text + error;
        });
}

TEST(ProductDataFile, HasItsVersionSectionRead) {
    const ValueParts leftAlone = {{"left", "alone"}};
    expectRows<std::string, ValueParts>(
        {{"[Version Number]\r\nVersion Number=16.4.1\r\nOther=2\r",
          {{"Other", "2"}, {"Version Number", "16.4.1"}}},
         {"x[version NUMBER]a = b=c \r\n\t\r\n;d=1\r\r\n", {{";d", "1"}, {"a ", " b=c "}}},
         {"[Version Number]\nVersion Number=16.4.1\nOther=2\n",
          {{"16.4.1\nOther", "2"}, {"Version Number", "16.4.1\nOther=2"}}},
         {"[Version Number]\r\na=1\r\nb= 2\nc=3\n", {{" 2\nc", "3"}, {"a", "1"}, {"b", " 2\nc=3"}}},
         {"[Version Number]\r\na=1\r\na=2\r\nA=3", {{"A", "3"}, {"a", "1"}}},
         {"[Version Number]\r\na=1\r\n[Other]\r\nb=2\r\n[Version Number]\r\nc=3", {{"a", "1"}}},
         {"[Version Number]=", {{"", ""}}},
         {"[Version Number]a=1\rb=2\rc=", {{"a", "1"}, {"b", "2"}, {"c", ""}}},
         {"[Version Number]\r\nno value", {}},
         {"[Version Number]\r\n \t\r\n", leftAlone},
         {"[Version Number]\r\n[Other]\r\na=1", leftAlone},
         {"[Version]\r\na=1", leftAlone}},
        [&leftAlone](const std::string& text) {
            ValueParts values = leftAlone;
            const bool found = readVersionSection(text, values);
            EXPECT_EQ(found, !values.empty() && values != leftAlone);
            return values;
        });
}

// Each of these would take minutes if any step looked at the rest of the text once per line or key.
TEST(ProductDataFile, TakesTimeInProportionToItsSize) {
    constexpr std::size_t size = 200'000;
    std::string pairs;
    for (std::size_t key = 0; key < size / 8; ++key) {
        pairs += std::to_string(key) + "=\n";
    }
    for (const std::string& content : {std::string(size, '\n'), std::string(size, '\0'),
                                       std::string(size, '='), std::string(size, '['), pairs}) {
        ValueParts values;
        std::ignore = readVersionSection(
            withoutComments(std::string(versionSectionHeader) + content), values);
        EXPECT_LE(values.size(), size);
    }
}
