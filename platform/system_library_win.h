#pragma once

#include <windows.h>

#include <string>

/// Restricts where later library loads look to the system folder, and removes the current
/// directory from the search path. Called first thing: the installer is started elevated from
/// folders that anybody may have written to. Silent where the platform lacks the calls (before
/// Windows 8 and its update for 7).
void restrictLibrarySearch();

/// Loads `name` (for example "version.dll") from the system folder by its full path, wherever
/// the search path leads. Null on failure. Never unloaded.
[[nodiscard]] HMODULE loadSystemLibrary(const char* name);

/// The function of type `Function` (a pointer, calling convention included) that `library` exports
/// as `name` (or by the number in it, MAKEINTRESOURCEA); null when the library or the export is
/// missing.
template <class Function>
Function procedureAddress(HMODULE library, const char* name) {
    // By way of void*: the compilers object to a direct cast from FARPROC.
    return library == nullptr
               ? nullptr
               : reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}
