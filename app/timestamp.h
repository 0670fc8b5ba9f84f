#pragma once

#include <cstdint>
#include <string>

/// A point in time as the clock tells it; mirrors the members of SYSTEMTIME (minwinbase.h) of the
/// same names.
struct SystemTime {
    std::uint16_t year = 0;
    std::uint16_t month = 0;  ///< 1 is January
    std::uint16_t day = 0;
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
};

/// Readable: "2026-01-02 03:04:05"; else `lead` (which the readable form leaves out) and the
/// digits alone. `text` is cut to 32 characters.
void FormatTimestamp(const SystemTime& time, std::string& text, bool readable, char lead);
