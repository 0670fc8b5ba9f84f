// The stack protector's support. The compiler's own library for it would bring in a cryptographic
// provider, loaded before the program can restrict where libraries come from.
//
// Compiled without the protector: the guard changes while seedStackGuard runs.

#include <cstdint>

#include "platform/runtime/end_process_win.h"

extern "C" {

/// Compared by every protected function. The value until the seeding is no secret.
std::uintptr_t __stack_chk_guard = 0x000A0DFF;

[[noreturn]] void __stack_chk_fail() {
    endProcess(STATUS_STACK_BUFFER_OVERRUN);
}
}

namespace {

int seedStackGuard() {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    const DWORD sources[] = {
        counter.LowPart,      static_cast<DWORD>(counter.HighPart),
        GetTickCount(),       GetCurrentProcessId(),
        GetCurrentThreadId(), static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(&counter)),
    };
    std::uintptr_t guard = 0x811C9DC5;  // FNV-1a: every source reaches the upper bytes
    for (const DWORD source : sources) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            guard = (guard ^ ((source >> shift) & 0xFF)) * 0x01000193;
        }
    }
    // A zero byte ends a copied text before it can overwrite the bytes behind with their own value.
    __stack_chk_guard = guard & ~static_cast<std::uintptr_t>(0xFF);
    return 0;
}

/// The start-up code calls what stands in this section before any constructor.
__attribute__((section(".CRT$XIB"), used)) int (*const seedAtStart)() = seedStackGuard;

}  // namespace
