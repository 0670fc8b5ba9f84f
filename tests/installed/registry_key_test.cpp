#include "installed/registry_key.h"

#include "tests/installed/scratch_machine.h"

namespace {

bool isOpen(HKEY key) {
    return RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

TEST(RegistryKey, KeepsItsKeyUntilAnotherOneOpens) {
    const ScratchMachine machine;
    machine.createKey("A\\B");
    HKEY last = nullptr;
    {
        RegistryKey key;
        EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "missing", KEY_READ), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(key.handle, nullptr);
        EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ | KEY_WOW64_32KEY), ERROR_SUCCESS);
        EXPECT_EQ(key.view, 0x200u);
        const HKEY first = key.handle;
        EXPECT_EQ(key.open(key.handle, "missing", KEY_READ), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(key.handle, first);
        EXPECT_EQ(key.view, 0x200u);
        EXPECT_EQ(key.open(key.handle, "B", KEY_READ), ERROR_SUCCESS);
        EXPECT_EQ(key.view, 0u);
        EXPECT_FALSE(isOpen(first));
        last = key.handle;
        EXPECT_TRUE(isOpen(last));
    }
    EXPECT_FALSE(isOpen(last));
}

TEST(RegistryKey, OpensInItsTransaction) {
    const ScratchMachine machine;
    machine.createKey("A");
    RegistryTransaction transaction;
    RegistryKey key(&transaction);
    EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ), ERROR_INVALID_FUNCTION);
    transaction.opensWithoutHandle = 1;
    EXPECT_EQ(key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ), ERROR_SUCCESS);

    const HKEY held = key.handle;
    transaction.handle = reinterpret_cast<HANDLE>(1);  // none
    const bool offered =
        GetProcAddress(GetModuleHandleA("advapi32.dll"), "RegOpenKeyTransactedA") != nullptr;
    const LSTATUS result = key.open(HKEY_LOCAL_MACHINE, "A", KEY_READ);
    if (offered) {
        EXPECT_NE(result, ERROR_SUCCESS);
    } else {
        EXPECT_EQ(result, ERROR_INVALID_FUNCTION);
    }
    EXPECT_EQ(key.handle, held);
    EXPECT_TRUE(isOpen(held));
}

}  // namespace
