#include "platform/registry_key.h"

#include "tests/installed/described_tree.h"

using namespace std::string_literals;

// Into 260 bytes.
TEST(RegistryKey, ReadsTerminatedStringsOnly) {
    constexpr std::uint32_t text = 1, expandable = 2, binary = 3, texts = 7, moreData = 234;
    const std::string longest(259, 'x');
    const struct {
        std::uint32_t type;
        std::string data, read;
        std::uint32_t error = errorSuccess;
    } rows[] = {{text, "", ""},
                {text, "abc\0"s, "abc"},
                {expandable, "%a%\0"s, "%a%"},
                {text, "a\0b\0"s, "a"},
                {text, longest + '\0', longest},
                {text, longest + "x\0"s, "", moreData},
                {text, longest + 'x', "", errorInvalidData},
                {text, "abc", "", errorInvalidData},
                {binary, "abc\0"s, "", errorInvalidData},
                {texts, "a\0b\0\0"s, "", errorInvalidData}};
    for (const auto& row : rows) {
        DescribedMachine machine;
        machine.registry.keys["A"]["name"] = {row.type, row.data};
        std::unique_ptr<KeyReader> key;
        ASSERT_EQ(machine.localMachine()->openSubkey("A", key), errorSuccess);
        unsigned long size = 0;
        const std::uint32_t alone = readStringValue(*key, "NAME", nullptr, size);
        EXPECT_EQ(size, alone == errorSuccess ? row.data.size() : 0);
        std::string buffer(300, '#');
        EXPECT_EQ(readStringValue(*key, "name", buffer.data(), size = 260), row.error);
        EXPECT_EQ(buffer.substr(260), std::string(40, '#'));
        EXPECT_EQ(size, row.error == errorSuccess ? row.data.size() : 0);
        if (row.error == errorSuccess) {
            EXPECT_EQ(std::string(buffer.c_str()), row.read);
        }
    }
}
