#include "platform/registry_key.h"

#include "desk/computer/described_machine.h"
#include "tests/rows.h"

using namespace std::string_literals;

// Into 260 bytes.
TEST(RegistryKey, ReadsTerminatedStringsOnly) {
    constexpr std::uint32_t text = 1, expandable = 2, binary = 3, texts = 7;
    const std::string moreData = "234", invalidData = "13";
    const std::string longest(259, 'x');
    // Its text, or the error.
    expectRows<std::tuple<std::uint32_t, std::string>, std::string>(
        {{{text, ""}, ""},
         {{text, "abc\0"s}, "abc"},
         {{expandable, "%a%\0"s}, "%a%"},
         {{text, "a\0b\0"s}, "a"},
         {{text, longest + '\0'}, longest},
         {{text, longest + "x\0"s}, moreData},
         {{text, longest + 'x'}, invalidData},
         {{text, "abc"}, invalidData},
         {{binary, "abc\0"s}, invalidData},
         {{texts, "a\0b\0\0"s}, invalidData}},
        [](std::uint32_t type, const std::string& data) {
            DescribedMachine machine;
            machine.registry.keys["A"]["name"] = {type, data};
            std::unique_ptr<KeyReader> key;
            EXPECT_EQ(machine.localMachine()->openSubkey("A", key), errorSuccess);
            unsigned long size = 0, typeRead = 99;
            const std::uint32_t alone = readStringValue(*key, "NAME", nullptr, size, &typeRead);
            EXPECT_EQ(typeRead, alone == errorSuccess ? type : 99);
            EXPECT_EQ(size, alone == errorSuccess ? data.size() : 0);
            std::string buffer(300, '#');
            const std::uint32_t error = readStringValue(*key, "name", buffer.data(), size = 260);
            EXPECT_EQ(buffer.substr(260), std::string(40, '#'));
            EXPECT_EQ(size, error == errorSuccess ? data.size() : 0);
            return error == errorSuccess ? buffer.c_str() : std::to_string(error);
        });
}
