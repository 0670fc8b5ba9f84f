#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

extern "C" std::uintptr_t __stack_chk_guard;

namespace {

// Constructed before main, so what it sees was in place before constructors.
const std::uintptr_t guardOfConstructors = __stack_chk_guard;

const std::map<std::string, std::vector<int>> table = {{"one", {1}}, {"two", {1, 2}}};

[[gnu::noinline]] void overflow(std::size_t size) {
    volatile char room[8];
    volatile char* volatile start = room;
    for (std::size_t offset = 0; offset < size; ++offset) {
        start[offset] = 'x';
    }
}

/// Tells by the exit code that an exception came first.
LONG WINAPI endOtherwise(EXCEPTION_POINTERS* raised) {
    TerminateProcess(GetCurrentProcess(), raised->ExceptionRecord->ExceptionCode + 1);
    return EXCEPTION_CONTINUE_SEARCH;
}

const std::string& builtOnce() {
    static const std::string text = "two";
    return text;
}

}  // namespace

/// Exit code 0 when the guard's value has been drawn and never changed, 1 otherwise.
int main(int count, char** arguments) {
    const std::string way = count > 1 ? arguments[1] : "";
    if (way == "raise") {
        SetUnhandledExceptionFilter(endOtherwise);
    }
    if (way == "overflow") {
        overflow(64);
    } else if (way == "range") {
        return table.at("three").at(0);
    } else if (way == "length") {
        return std::string(SIZE_MAX / 2 + static_cast<std::size_t>(count), 'x').find('y') != 0;
    } else if (way == "memory" || way == "raise") {
        // Nothing is written to it: an address space is exhausted, not a machine.
        for (;;) {
            [[maybe_unused]] volatile char* volatile room = new char[SIZE_MAX >> 6];
        }
    }
    const bool drawn = guardOfConstructors != 0x000A0DFF && (guardOfConstructors & 0xFF) == 0;
    return drawn && guardOfConstructors == __stack_chk_guard && table.at(builtOnce()).size() == 2
               ? 0
               : 1;
}
