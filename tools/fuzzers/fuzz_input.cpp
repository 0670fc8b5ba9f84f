#include "tools/fuzzers/fuzz_input.h"

/// Called by libFuzzer, with the input in memory of exactly its size.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz({reinterpret_cast<const char*>(data), size});
    return 0;
}
