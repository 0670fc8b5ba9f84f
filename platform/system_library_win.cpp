#include "platform/system_library_win.h"

namespace {

constexpr DWORD searchSystemFolder = 0x00000800;  // LOAD_LIBRARY_SEARCH_SYSTEM32, libloaderapi.h

}  // namespace

void restrictLibrarySearch() {
    const HMODULE kernel = GetModuleHandleA("kernel32.dll");
    if (kernel == nullptr) {
        return;
    }
    using SetDefaultDllDirectories = BOOL(WINAPI*)(DWORD);
    using SetDllDirectory = BOOL(WINAPI*)(const char*);
    if (const auto setDefaultDirectories =
            procedureAddress<SetDefaultDllDirectories>(kernel, "SetDefaultDllDirectories")) {
        setDefaultDirectories(searchSystemFolder);
    }
    if (const auto setDirectory = procedureAddress<SetDllDirectory>(kernel, "SetDllDirectoryA")) {
        setDirectory("");
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
