#include "platform/registry_key_win.h"

#include "tests/installed/scratch_machine_win.h"
#include "tests/rows.h"

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

// Into 260 bytes.
TEST(RegistryKey, ReadsTerminatedStringsOnly) {
    const ScratchMachine machine;
    machine.createKey("A");
    RegistryKey key;
    ASSERT_EQ(key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ), ERROR_SUCCESS);
    const std::string longest(259, 'x');
    const std::string invalid = "error 13, size 0", more = "error 234, size 0";
    expectRows<std::tuple<DWORD, std::string>, std::string>(
        {{{REG_SZ, ""}, ""},
         {{REG_SZ, "abc\0"s}, "abc"},
         {{REG_EXPAND_SZ, "%a%\0"s}, "%a%"},
         {{REG_SZ, "a\0b\0"s}, "a"},
         {{REG_SZ, "\xE9\xFF\0"s}, "\xE9\xFF"},
         {{REG_SZ, longest + '\0'}, longest},
         {{REG_SZ, longest + "x\0"s}, more},
         {{REG_SZ, longest + 'x'}, invalid},
         {{REG_SZ, "abc"}, invalid},
         {{REG_BINARY, "abc\0"s}, invalid},
         {{REG_MULTI_SZ, "a\0b\0\0"s}, invalid}},
        [&](DWORD type, const std::string& data) {
            machine.setValue("A", "name", type, data);
            DWORD size = 0;
            const LSTATUS alone = readStringValue(key.handle.get(), "name", nullptr, size);
            EXPECT_EQ(size, alone == ERROR_SUCCESS ? data.size() : 0);
            std::string buffer(300, '#');
            size = 260;
            const LSTATUS error = readStringValue(key.handle.get(), "name", buffer.data(), size);
            EXPECT_EQ(buffer.substr(260), std::string(40, '#'));
            if (error != ERROR_SUCCESS) {
                return "error " + std::to_string(error) + ", size " + std::to_string(size);
            }
            EXPECT_EQ(size, data.size());
            return std::string(buffer.c_str());
        });
}

}  // namespace
