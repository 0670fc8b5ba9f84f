// The install log: its lines, and whether the file that was opened is the one that was meant.
// Everybody may write to the documents folder of all users, and a link put there would lead what an
// administrator's run writes to a file of somebody's choice.
#pragma once

#include <cstdint>
#include <string>

inline constexpr const char* installLogFile = "InstallLog.txt";

/// What Windows says of the open folder and of the open file in it.
struct InstallLogFacts {
    std::uint32_t folderAttributes;  ///< FILE_ATTRIBUTE_ of winnt.h
    std::uint32_t fileAttributes;
    std::uint32_t fileLinks;  ///< names that the file has
    /// Where the two lie, whatever led there; empty where Windows cannot tell (before Vista).
    std::string folderPath;
    std::string filePath;
};

/// Whether a folder, or a file, with these attributes leads elsewhere.
[[nodiscard]] bool isReparsePoint(std::uint32_t attributes);

[[nodiscard]] bool mayAppendToLog(const InstallLogFacts& facts);

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
/// digits alone, for the product line. `text` is cut to 32 characters.
void FormatTimestamp(const SystemTime& time, std::string& text, bool readable, char lead);

/// The install log's line, without a line end, about an uninstaller that could not be copied.
/// `error` is Windows' error code, `time` is UTC.
[[nodiscard]] std::string copyFailedLogLine(const SystemTime& time, const std::string& source,
                                            const std::string& target, std::uint32_t error);
