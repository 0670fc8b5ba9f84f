// Whether the install log that was opened is the one that was meant. Everybody may write to the
// documents folder of all users, and a link put there would lead what an administrator's run writes
// to a file of somebody's choice.
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
