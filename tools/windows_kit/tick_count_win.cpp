// The compiler's thread library, as mingw-w64 10 has it, imports GetTickCount64, and Windows XP
// starts no program that imports what it lacks. This stands in for the import. Nothing in the kit
// waits by that library's clock: 32 bits, which start again after 49 days, are enough.
#include <windows.h>

namespace {

ULONGLONG WINAPI tickCount() {
    return GetTickCount();
}

}  // namespace

extern "C" {
extern ULONGLONG(WINAPI* const tickCountImport)() __asm__("__imp__GetTickCount64@0");
ULONGLONG(WINAPI* const tickCountImport)() = tickCount;
}
