#include "platform/registry_key_win.h"

#include "tests/installed/described_tree.h"
#include "tests/installed/scratch_machine_win.h"

using namespace std::string_literals;

namespace {

bool isOpen(HKEY key) {
    return RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

TEST(RegistryKey, KeepsItsKeyUntilAnotherOneOpens) {
    const ScratchMachine machine;
    machine.createKey("A\\B");
    HKEY last;
    {
        RegistryKey key;
        EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ | KEY_WOW64_32KEY), ERROR_SUCCESS);
        const HKEY first = key.handle.get();
        EXPECT_EQ(key.open(first, "missing", KEY_READ | KEY_WOW64_64KEY), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(key.handle.get(), first);
        EXPECT_EQ(key.view, 0x200u);
        EXPECT_EQ(key.open(first, "B", KEY_READ | KEY_WOW64_64KEY), ERROR_SUCCESS);
        EXPECT_EQ(key.view, 0x100u);
        EXPECT_FALSE(isOpen(first));
        last = key.handle.get();
    }
    EXPECT_FALSE(isOpen(last));
}

TEST(RegistryKey, OpensInItsTransaction) {
    RegistryTransaction transaction;
    RegistryKey key(&transaction);
    EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "", KEY_READ), ERROR_INVALID_FUNCTION);
    transaction.opensWithoutHandle = 1;
    EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "", KEY_READ), ERROR_SUCCESS);
    transaction.handle = reinterpret_cast<HANDLE>(1);  // none
    EXPECT_NE(key.open(HKEY_LOCAL_MACHINE, "", KEY_READ), ERROR_SUCCESS);
    EXPECT_TRUE(isOpen(key.handle.get()));
}

// The run's own code reads described registries in its tests: they answer as Windows does.
TEST(RegistryKey, AnswersAsTheDescribedOne) {
    const ScratchMachine machine;
    DescribedMachine described;
    const std::tuple<const char*, DWORD, std::string> values[] = {
        {"", REG_SZ, "default\0"s},    {"a", REG_SZ, "text\0"s}, {"b", REG_SZ, "no end"},
        {"c", REG_BINARY, ""},         {"d", REG_DWORD, "ABCD"}, {"e", REG_MULTI_SZ, "a\0b\0\0"s},
        {"f", REG_EXPAND_SZ, "%a%\0"s}};
    for (const auto& [name, type, data] : values) {
        machine.setValue("K", name, type, data);
        described.registry.keys["K"][name] = {type, data};
    }
    for (const char* subkey : {"K\\one", "K\\two long name"}) {
        machine.createKey(subkey);
        described.registry.keys[subkey];
    }
    std::unique_ptr<KeyReader> real = openLocalMachine(), told = described.localMachine(), none;
    EXPECT_EQ(real->openSubkey("K\\absent", none), told->openSubkey("K\\absent", none));
    ASSERT_EQ(real->openSubkey("K\\", real) + told->openSubkey("K\\", told), errorSuccess);
    const auto answers = [&values](const KeyReader& key) {
        std::string all;
        unsigned long subkeys = 0, valueCount = 0;
        const std::uint32_t counted = key.count(subkeys, valueCount);
        all += testing::PrintToString(std::tuple(counted, subkeys, valueCount)) + '\n';
        const auto tell = [&all](std::uint32_t error, const std::string& what) {
            all += std::to_string(error) + (error == errorSuccess ? ' ' + what : "") + '\n';
        };
        char name[300], data[300];
        for (const unsigned long room : {300, 14, 13, 4, 3}) {
            for (unsigned long index = 0; index < 8; ++index) {
                unsigned long size = room, dataSize = room, type = 0;
                const std::uint32_t subkey = key.enumerateSubkey(index, name, size);
                tell(subkey, std::string(name, size));
                const std::uint32_t error =
                    key.enumerateValue(index, name, size = room, data, dataSize);
                tell(error, std::string(name, size) + '=' + std::string(data, dataSize));
                const char* const wanted = index < 7 ? std::get<0>(values[index]) : "absent";
                const std::uint32_t asked = key.queryValue(wanted, type, data, size = room);
                tell(asked, std::to_string(type) + std::string(data, size));
                const std::uint32_t sized = key.queryValue(wanted, type, nullptr, size = 0);
                tell(sized, std::to_string(size));
            }
        }
        return all;
    };
    EXPECT_EQ(answers(*real), answers(*told));
}

}  // namespace
