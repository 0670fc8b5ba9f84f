#include "platform/system_library_win.h"

namespace {

constexpr DWORD searchSystemFolder = 0x00000800;  // LOAD_LIBRARY_SEARCH_SYSTEM32, libloaderapi.h

/// Set once the current directory was removed from the search; the call that brings it back.
constinit LibrarySearchCalls::SetDirectory directorySearch = nullptr;

}  // namespace

LibrarySearchCalls librarySearchCalls() {
    const HMODULE kernel = GetModuleHandleA("kernel32.dll");
    return {procedureAddress<LibrarySearchCalls::SetDefaultDirectories>(kernel,
                                                                        "SetDefaultDllDirectories"),
            procedureAddress<LibrarySearchCalls::SetDirectory>(kernel, "SetDllDirectoryA")};
}

void restrictLibrarySearch(const LibrarySearchCalls& calls) {
    directorySearch = nullptr;
    if (calls.setDefaultDirectories != nullptr) {
        calls.setDefaultDirectories(searchSystemFolder);
    } else if (calls.setDirectory != nullptr) {
        directorySearch = calls.setDirectory;
        directorySearch("");
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

HMODULE loadSystemLibrary(const char* name) {
    char folder[MAX_PATH];
    const UINT length = GetSystemDirectoryA(folder, sizeof folder);
    if (length == 0 || length >= sizeof folder) {
        return nullptr;
    }
    return LoadLibraryA((std::string(folder) + '\\' + name).c_str());
}
