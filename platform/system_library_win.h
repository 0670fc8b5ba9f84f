#pragma once

#include <windows.h>

#include <string>

/// The calls of kernel32 that say where libraries are looked for; null where it lacks them.
struct LibrarySearchCalls {
    using SetDefaultDirectories = BOOL(WINAPI*)(DWORD flags);
    using SetDirectory = BOOL(WINAPI*)(const char* folder);
    SetDefaultDirectories setDefaultDirectories;  ///< Windows 8, and Vista and 7 with an update
    SetDirectory setDirectory;                    ///< Windows XP with its first service pack
};
[[nodiscard]] LibrarySearchCalls librarySearchCalls();

/// Restricts where later library loads look to the system folder. A Windows that cannot do that
/// looks beside the program first: there the libraries that it is known to look for are loaded from
/// the system folder, and the current directory is removed from the places. Called first thing: the
/// installer is started elevated from folders that anybody may have written to. Silent where the
/// calls and the libraries are missing.
void restrictLibrarySearch(const LibrarySearchCalls& calls = librarySearchCalls());

/// While it lives, a started program has the current directory among its places, as programs have:
/// what SetDllDirectory removed is missing in the programs started, too.
class InheritableLibrarySearch {
  public:
    InheritableLibrarySearch();
    ~InheritableLibrarySearch();
    InheritableLibrarySearch& operator=(InheritableLibrarySearch&&) = delete;  // nor is it copied
};

/// Loads the library at the full path `path`. What it needs itself is not looked for beside the
/// program, once the search was restricted. Null on failure. Never unloaded.
HMODULE loadLibrary(const std::string& path);

/// Loads `name` (for example "version.dll") from the system folder by loadLibrary.
HMODULE loadSystemLibrary(const char* name);

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
