// Which driver archives each family of capture hardware needs.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// At which point of the install sequence a family's packages are installed.
namespace install_kind {
inline constexpr std::uint32_t endSilently = 2;
inline constexpr std::uint32_t liveOnly = 8;
inline constexpr std::uint32_t beforeProductType = 16;
}  // namespace install_kind

/// One archive to unpack.
struct DriverPackage {
    bool runInstaller = false;              ///< run the driver installer that the report names
    std::vector<int> operatingSystemCodes;  ///< on which the package applies
    std::string archive;                    ///< file name, relative to the source directory
    std::string targetFolder;               ///< may hold "#PROGRAM_FILES#"
};

struct DeviceFamily {
    const char* dataKey = nullptr;  ///< 16 characters; static, not owned; null: none given
    std::uint32_t installKind = 0;
    std::string familyWord;
    std::vector<DriverPackage> packages;
};

/// By device-family code in lower case.
using DriverPackageTable = std::map<std::string, DeviceFamily>;

/// Empties `table` and fills it with every family. True when anything is in it.
bool buildDriverPackageTable(DriverPackageTable& table);

/// The same with the families of `codeList`, codes separated by semicolons
/// and of any letter case; unknown and empty codes are skipped.
bool buildDriverPackageTable(DriverPackageTable& table, std::string codeList);

/// Exact, case-sensitive look-up; null when there is none. The record belongs to the table.
[[nodiscard]] const DeviceFamily* findDeviceFamily(const DriverPackageTable& table,
                                                   const std::string& code);
