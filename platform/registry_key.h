// What the raw data of a registry value is as text. Anything can be stored under any type, with
// or without a terminator.
#pragma once

#include <cstddef>
#include <string_view>

/// Whether `type` is one of the two string types (REG_SZ and REG_EXPAND_SZ of winnt.h).
[[nodiscard]] bool isStringType(unsigned long type);

/// Whether the data is empty or its last byte is a terminator.
[[nodiscard]] bool isTerminated(const char* data, std::size_t size);

/// The data up to its first zero byte, or all of it. Points into `data`.
[[nodiscard]] std::string_view textOfData(const char* data, std::size_t size);
