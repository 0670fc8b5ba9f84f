#include "platform/system_library_win.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/shell_runner_win.h"

namespace {

TEST(SystemLibrary, LoadsFromTheSystemFolderOnly) {
    const HMODULE library = loadSystemLibrary("version.dll");
    char path[MAX_PATH] = "", folder[MAX_PATH] = "";
    GetModuleFileNameA(library, path, sizeof path);
    GetSystemDirectoryA(folder, sizeof folder);
    EXPECT_EQ(lstrcmpiA(path, (std::string(folder) + "\\version.dll").c_str()), 0);
    EXPECT_EQ(loadSystemLibrary("no such library.dll"), nullptr);
}

std::string calls;

BOOL WINAPI recordDefaultDirectories(DWORD flags) {
    calls += "default " + std::to_string(flags) + ';';
    return TRUE;
}

BOOL WINAPI recordDirectory(const char* folder) {
    calls += folder == nullptr ? "given back;" : '"' + std::string(folder) + "\";";
    return TRUE;
}

TEST(SystemLibrary, SearchWithoutTheCurrentFolderIsNotInherited) {
    const std::pair<LibrarySearchCalls, const char*> table[] = {
        {{recordDefaultDirectories, recordDirectory}, "default 2048;started;"},
        {{nullptr, recordDirectory}, "\"\";loaded;given back;\"\";started;"},
        {{nullptr, nullptr}, "loaded;started;"}};
    for (const auto& [platform, expected] : table) {
        calls.clear();
        restrictLibrarySearch(platform);
        // One of those that Windows would look for beside the program.
        calls += GetModuleHandleA("oleacc.dll") != nullptr ? "loaded;" : "";
        const HANDLE process = ShellRunner().start(_pgmptr, "--gtest_filter=None", "open");
        calls += process != nullptr ? "started;" : "failed;";
        EXPECT_EQ(WaitForSingleObject(process, 30000), WAIT_OBJECT_0);
        CloseHandle(process);
        EXPECT_EQ(calls, expected);
    }
}

}  // namespace
