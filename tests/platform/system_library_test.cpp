#include "platform/system_library.h"

#include <gtest/gtest.h>

#include "platform/procedure_address.h"

namespace {

TEST(SystemLibrary, LoadsFromTheSystemFolderOnly) {
    const HMODULE library = loadSystemLibrary("version.dll");
    ASSERT_NE(library, nullptr);
    char path[MAX_PATH] = "", folder[MAX_PATH] = "";
    GetModuleFileNameA(library, path, sizeof path);
    GetSystemDirectoryA(folder, sizeof folder);
    EXPECT_EQ(lstrcmpiA(path, (std::string(folder) + "\\version.dll").c_str()), 0);
    EXPECT_EQ(loadSystemLibrary("no such library.dll"), nullptr);
    EXPECT_EQ(procedureAddress<void (*)()>(library, "NoSuchExport"), nullptr);
    EXPECT_EQ(procedureAddress<void (*)()>(nullptr, "VerQueryValueA"), nullptr);
}

TEST(SystemLibrary, RestrictedSearchLeavesTheCurrentFolderOut) {
    char own[MAX_PATH] = "", folder[MAX_PATH] = "", before[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, sizeof own);
    GetTempPathA(sizeof folder, folder);
    GetCurrentDirectoryA(sizeof before, before);
    const std::string planted = std::string(folder) + "planted_library.dll";
    ASSERT_TRUE(CopyFileA(own, planted.c_str(), FALSE));
    ASSERT_TRUE(SetCurrentDirectoryA(folder));
    const HMODULE found = LoadLibraryA("planted_library.dll");
    EXPECT_NE(found, nullptr);
    FreeLibrary(found);
    restrictLibrarySearch();
    EXPECT_EQ(LoadLibraryA("planted_library.dll"), nullptr);
    EXPECT_NE(LoadLibraryA("version.dll"), nullptr);
    SetCurrentDirectoryA(before);
    DeleteFileA(planted.c_str());
}

}  // namespace
