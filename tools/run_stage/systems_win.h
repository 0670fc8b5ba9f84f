// The systems without Windows that the tests run on; each has faults of its own, for which a row
// may have to be left out.
#pragma once

#include <windows.h>

#include <shlwapi.h>

#include <string>

inline bool onWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

inline bool onReactOs() {
    char name[64] = "";
    DWORD size = sizeof name;
    SHGetValueA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
                "ProductName", nullptr, name, &size);
    return name == std::string("ReactOS");
}
