// Names the running Windows release and gives it a code, from the numbers that Windows reports.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Codes that other code names; 0 ("Win32s") to 23 are the known releases in the order of
/// identifyOperatingSystem.
namespace operating_system_code {
inline constexpr int windowsXp = 9;
inline constexpr int newestKnown = 23;
inline constexpr int unknownNewer = 24;
inline constexpr int notRecognised = -1;
inline constexpr int nameTooLong = -2;
inline constexpr int noBuffer = -3;
}  // namespace operating_system_code

/// Everything the identification looks at. The first group mirrors OSVERSIONINFOA, the second
/// OSVERSIONINFOEXA, GetNativeSystemInfo and GetSystemMetrics(SM_SERVERR2).
struct OperatingSystemFacts {
    std::uint32_t queryError = 0;  ///< GetLastError of a failed first query; see queryFailed
    bool queryFailed = false;
    std::uint32_t platformId = 0;
    std::uint32_t majorVersion = 0;
    std::uint32_t minorVersion = 0;
    std::string servicePack;

    std::uint32_t extendedQueryError = 0;
    bool extendedQueryFailed = false;
    std::uint32_t extendedMajorVersion = 0;
    std::uint32_t extendedMinorVersion = 0;
    std::uint8_t productType = 0;          ///< 1 is VER_NT_WORKSTATION
    std::uint16_t suiteMask = 0;           ///< 0x8000 is VER_SUITE_WH_SERVER
    std::uint16_t nativeArchitecture = 0;  ///< 9 is PROCESSOR_ARCHITECTURE_AMD64
    int serverR2Metric = 0;
};

/// How the name reaches a caller's buffer.
enum class NameDelivery {
    Checked,   ///< its length is compared with the buffer first
    Direct,    ///< formatted straight into the buffer, cut to fit
    Withheld,  ///< the buffer keeps what it held
};

struct OperatingSystemIdentity {
    int code = operating_system_code::notRecognised;
    std::string name;
    NameDelivery delivery = NameDelivery::Checked;
};

/// True when the decision for the first query's numbers needs the extended query.
bool needsExtendedQuery(const OperatingSystemFacts& facts);

OperatingSystemIdentity identifyOperatingSystem(const OperatingSystemFacts& facts);

/// Puts the name into `buffer` of `size` bytes and returns the code. Returns noBuffer, touching
/// nothing, when there is no buffer; nameTooLong, touching nothing, when the name without its
/// terminator is longer than `size`. A name of exactly `size` characters passes that test and
/// then does not fit with its terminator: the buffer becomes empty (kept: the code is still
/// returned).
int deliverOperatingSystemName(const OperatingSystemIdentity& identity, char* buffer,
                               std::size_t size);
