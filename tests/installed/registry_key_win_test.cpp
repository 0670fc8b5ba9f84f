#include "installed/registry_key_win.h"

#include "tests/installed/scratch_machine_win.h"

namespace {

bool isOpen(HKEY key) {
    return RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

TEST(RegistryKey, KeepsItsKeyUntilAnotherOneOpens) {
    const ScratchMachine machine;
    machine.createKey("A\\B");
    HKEY first, last;
    {
        RegistryKey key;
        EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ | KEY_WOW64_32KEY), ERROR_SUCCESS);
        first = key.handle.get();
        EXPECT_EQ(key.open(key.handle.get(), "missing", KEY_READ), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(key.handle.get(), first);
        EXPECT_EQ(key.view, 0x200u);
        EXPECT_EQ(key.open(key.handle.get(), "B", KEY_READ), ERROR_SUCCESS);
        EXPECT_EQ(key.view, 0u);
        EXPECT_FALSE(isOpen(first));
        last = key.handle.get();
    }
    EXPECT_FALSE(isOpen(last));
}

TEST(RegistryKey, OpensInItsTransaction) {
    const ScratchMachine machine;
    RegistryTransaction transaction;
    RegistryKey key(&transaction);
    EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "", KEY_READ), ERROR_INVALID_FUNCTION);
    transaction.opensWithoutHandle = 1;
    EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "", KEY_READ), ERROR_SUCCESS);
    transaction.handle = reinterpret_cast<HANDLE>(1);  // none
    EXPECT_NE(key.open(HKEY_LOCAL_MACHINE, "", KEY_READ), ERROR_SUCCESS);
    EXPECT_TRUE(isOpen(key.handle.get()));
}

}  // namespace
