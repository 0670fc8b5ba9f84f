// Names the running Windows release and gives it a code, from the numbers that Windows reports.
#pragma once

#include <optional>
#include <string>

#include "platform/windows_constants.h"

class Computer;

/// What a run knows the running release by. Later releases than those that the manifest declares
/// report themselves as 6.2, so the codes above windows8 and server2012 are rare.
namespace operating_system_code {
inline constexpr int win32s = 0;
inline constexpr int windows95 = 1;
inline constexpr int windows95Osr2 = 2;
inline constexpr int windows98 = 3;
inline constexpr int windows98SecondEdition = 4;
inline constexpr int windowsMe = 5;
inline constexpr int windowsNt351 = 6;  ///< and any other 3.x
inline constexpr int windowsNt4 = 7;    ///< any 4.x
inline constexpr int windows2000 = 8;   ///< its servers too
inline constexpr int windowsXp = 9;
inline constexpr int windowsXpX64 = 10;  ///< any 5.2 on AMD64, the servers of 2003 among them
inline constexpr int server2003 = 11;
inline constexpr int homeServer = 12;
inline constexpr int server2003R2 = 13;
inline constexpr int windowsVista = 14;
inline constexpr int server2008 = 15;
inline constexpr int server2008R2 = 16;
inline constexpr int windows7 = 17;
inline constexpr int windows8 = 18;    ///< and every later workstation, which reports 6.2
inline constexpr int server2012 = 19;  ///< and every later server, which reports 6.2
inline constexpr int windows81 = 20;
inline constexpr int server2012R2 = 21;
inline constexpr int windows10 = 22;
inline constexpr int server10 = 23;
inline constexpr int unknownNewer = 24;   ///< a major version of 7 or more, or a later 6.x or 10.x
inline constexpr int notRecognised = -1;  ///< the query failed, or its answer names no release
inline constexpr int nameTooLong = -2;    ///< for the caller's buffer
inline constexpr int noBuffer = -3;

/// The releases that tell workstation from server, by the numbers of OSVERSIONINFOEXA.
struct ReleaseRow {
    std::uint32_t majorVersion, minorVersion;
    int workstationCode;
    const char* workstationName;
    int serverCode;
    const char* serverName;
};
// Kept: 6.1 alone gives the server the lower code; the driver packages name these codes.
inline constexpr ReleaseRow releaseRows[] = {
    {6, 0, windowsVista, "Windows Vista", server2008, "Windows Server 2008"},
    {6, 1, windows7, "Windows 7", server2008R2, "Windows Server 2008 R2"},
    {6, 2, windows8, "Windows 8", server2012, "Windows Server 2012"},
    {6, 3, windows81, "Windows 8.1", server2012R2, "Windows Server 2012 R2"},
    {10, 0, windows10, "Windows 10 Insider Preview", server10,
     "Windows Server 10 Technical Preview"},
};
// Of these major versions the extended query tells the release. Kept: not of 10, whose row serves
// only where the two queries differ.
constexpr bool isToldByExtendedQuery(std::uint32_t majorVersion) {
    return majorVersion == 6;
}
}  // namespace operating_system_code

/// Everything the identification looks at. The first group mirrors OSVERSIONINFOA, the second
/// OSVERSIONINFOEXA, GetNativeSystemInfo and GetSystemMetrics(SM_SERVERR2).
struct OperatingSystemFacts {
    std::optional<std::uint32_t> queryError;  ///< GetLastError, where the first query failed
    std::uint32_t platformId = 0;
    std::uint32_t majorVersion = 0;
    std::uint32_t minorVersion = 0;
    std::string servicePack;

    std::optional<std::uint32_t> extendedQueryError;
    std::uint32_t extendedMajorVersion = 0;
    std::uint32_t extendedMinorVersion = 0;
    std::uint8_t productType = 0;
    std::uint16_t suiteMask = 0;
    std::uint16_t nativeArchitecture = 0;
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
[[nodiscard]] bool needsExtendedQuery(const OperatingSystemFacts& facts);

[[nodiscard]] OperatingSystemIdentity identifyOperatingSystem(const OperatingSystemFacts& facts);

/// Puts the name into `buffer` of `size` bytes and returns the code. Returns noBuffer, touching
/// nothing, when there is no buffer; nameTooLong, touching nothing, when the name without its
/// terminator is longer than `size`. A name of exactly `size` characters passes that test and
/// then does not fit with its terminator: the buffer becomes empty (kept: the code is still
/// returned).
[[nodiscard]] int deliverOperatingSystemName(const OperatingSystemIdentity& identity, char* buffer,
                                             std::size_t size);

/// The code alone; see operating_system_code for the negative ones.
[[nodiscard]] int operatingSystemCode(Computer& computer);

/// The naming form: sets `platformId` (0 until Windows has answered) and, with `wantName`, fills
/// `buffer` of `size` bytes as deliverOperatingSystemName does.
[[nodiscard]] int operatingSystemName(Computer& computer, std::uint32_t& platformId, char* buffer,
                                      std::size_t size, bool wantName);

/// As above with the name wanted and the platform id dropped.
[[nodiscard]] int operatingSystemName(Computer& computer, char* buffer, std::size_t size);
