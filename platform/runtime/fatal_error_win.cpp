// What the standard library calls when it cannot go on. The program is built without exceptions:
// defining these here keeps the library's throwing versions out, and with them its unwinder and
// thread support, which need a newer Windows than the program does.
#include <cstdlib>
#include <new>

#include "platform/runtime/end_process_win.h"

namespace {

void* allocate(std::size_t size) {
    return std::malloc(size != 0 ? size : 1);
}

}  // namespace

// The library's other forms end in these.
void* operator new(std::size_t size) {
    void* memory = allocate(size);
    if (memory == nullptr) {
        endProcess(STATUS_NO_MEMORY);
    }
    return memory;
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace std {

const nothrow_t nothrow{};

void __throw_bad_alloc() {
    endProcess(STATUS_NO_MEMORY);
}
void __throw_bad_array_new_length() {
    endProcess(STATUS_NO_MEMORY);
}
void __throw_bad_function_call() {
    endProcess(STATUS_ASSERTION_FAILURE);
}
void __throw_length_error(const char*) {
    endProcess(STATUS_ASSERTION_FAILURE);
}
void __throw_logic_error(const char*) {
    endProcess(STATUS_ASSERTION_FAILURE);
}
void __throw_out_of_range(const char*) {
    endProcess(STATUS_ASSERTION_FAILURE);
}
void __throw_out_of_range_fmt(const char*, ...) {
    endProcess(STATUS_ASSERTION_FAILURE);
}
// Called by the library's assertions where they are switched on. With the attribute in the form in
// which the library declares it: clang takes no other.
__attribute__((__noreturn__)) void __glibcxx_assert_fail(const char*, int, const char*,
                                                         const char*) noexcept {
    endProcess(STATUS_ASSERTION_FAILURE);
}

}  // namespace std

extern "C" [[noreturn]] void __cxa_pure_virtual() {
    endProcess(STATUS_ASSERTION_FAILURE);
}
