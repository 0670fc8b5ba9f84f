#pragma once

#include <windows.h>

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
