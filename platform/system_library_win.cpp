#include "platform/system_library_win.h"

#include <cstring>

namespace {

constexpr DWORD searchSystemFolder = 0x00000800;  // LOAD_LIBRARY_SEARCH_SYSTEM32, libloaderapi.h

/// What Windows itself loads into a program with dialogs, or into one that starts others, and looks
/// for beside the program first; once loaded, it is not looked for again. Each name with its
/// terminator, and an empty one behind them.
constexpr const char* searchedLibraries =
    "apphelp\0clbcatq\0cryptbase\0dwmapi\0oleacc\0propsys\0setupapi\0userenv\0uxtheme\0version\0";

/// Set once the current directory was removed from the search; the call that brings it back.
constinit LibrarySearchCalls::SetDirectory directorySearch = nullptr;

/// Of LoadLibraryEx. Where the search is not restricted, what a library needs itself is looked for
/// beside that library and not beside the program.
constinit DWORD loadFlags = 0;

}  // namespace

LibrarySearchCalls librarySearchCalls() {
    const HMODULE kernel = GetModuleHandleA("kernel32.dll");
    return {procedureAddress<LibrarySearchCalls::SetDefaultDirectories>(kernel,
                                                                        "SetDefaultDllDirectories"),
            procedureAddress<LibrarySearchCalls::SetDirectory>(kernel, "SetDllDirectoryA")};
}

void restrictLibrarySearch(const LibrarySearchCalls& calls) {
    directorySearch = nullptr;
    loadFlags = 0;
    if (calls.setDefaultDirectories != nullptr) {
        calls.setDefaultDirectories(searchSystemFolder);
        return;
    }
    if (calls.setDirectory != nullptr) {
        directorySearch = calls.setDirectory;
        directorySearch("");
    }
    loadFlags = LOAD_WITH_ALTERED_SEARCH_PATH;
    for (const char* name = searchedLibraries; *name != '\0'; name += std::strlen(name) + 1) {
        loadSystemLibrary(name);
    }
}

InheritableLibrarySearch::InheritableLibrarySearch() {
    if (directorySearch != nullptr) {
        directorySearch(nullptr);
    }
}

InheritableLibrarySearch::~InheritableLibrarySearch() {
    if (directorySearch != nullptr) {
        directorySearch("");
    }
}

HMODULE loadLibrary(const std::string& path) {
    return LoadLibraryExA(path.c_str(), nullptr, loadFlags);
}

HMODULE loadSystemLibrary(const char* name) {
    char folder[MAX_PATH];
    const UINT length = GetSystemDirectoryA(folder, sizeof folder);
    if (length == 0 || length >= sizeof folder) {
        return nullptr;
    }
    return loadLibrary(std::string(folder) + '\\' + name);
}
