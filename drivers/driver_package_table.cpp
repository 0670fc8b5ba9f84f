#include "drivers/driver_package_table.h"

#include <algorithm>
#include <iterator>

#include "platform/ansi_text.h"
#include "platform/operating_system.h"

namespace code = operating_system_code;

namespace {

/// The key that the archives were packed with.
constexpr char archiveKey[] = "Kq7vR2mXp9Lz4Wc1";
static_assert(sizeof archiveKey == 16 + 1);

struct FamilyRow {
    const char* code;
    const char* familyWord;
    std::uint32_t installKind;
    const char* archive;
    const char* secondArchive;  ///< null: none
};

constexpr FamilyRow familyRows[] = {
    {"16", "Bluetooth", install_kind::endSilently, "BluetoothTavlinkDrivers_Signed.fzx", nullptr},
    {"1K", "Serial", install_kind::beforeProductType, "SerialTavlinkDrivers.fzx", nullptr},
    {"1M", "Serial", install_kind::beforeProductType, "SerialTavlinkDrivers.fzx", nullptr},
    {"1R", "low energy", install_kind::endSilently, "leTavlinkDrivers.fzx", "CSRUSBSPIDrivers.fzx"},
    {"1U", "Corvane", install_kind::endSilently, "CorvaneTavlinkDrivers.fzx",
     "CSRUSBSPIDrivers.fzx"},
    // Kept: without the second archive of 1U.
    {"1W", "Multiple Tavlinks", install_kind::liveOnly, "CorvaneTavlinkDrivers.fzx", nullptr},
};

// Each by its name: a release that is added later has no drivers until they were tried on it.
constexpr int releasesWithDrivers[] = {
    code::windowsXp,    code::windowsXpX64, code::server2003, code::homeServer,
    code::server2003R2, code::windowsVista, code::server2008, code::server2008R2,
    code::windows7,     code::windows8,     code::server2012, code::windows81,
    code::server2012R2, code::windows10,    code::server10,
};

DriverPackage driverPackage(const char* archive) {
    return {true,
            {std::begin(releasesWithDrivers), std::end(releasesWithDrivers)},
            archive,
            "#PROGRAM_FILES#\\Halvick Test System II\\Drivers\\"};
}

DeviceFamily deviceFamily(const FamilyRow& row) {
    DeviceFamily family{archiveKey, row.installKind, row.familyWord, {driverPackage(row.archive)}};
    if (row.secondArchive != nullptr) {
        family.packages.push_back(driverPackage(row.secondArchive));
    }
    return family;
}

}  // namespace

bool buildDriverPackageTable(DriverPackageTable& table) {
    std::string allCodes;
    for (const FamilyRow& row : familyRows) {
        allCodes.append(row.code).append(";");
    }
    return buildDriverPackageTable(table, allCodes);
}

bool buildDriverPackageTable(DriverPackageTable& table, std::string codeList) {
    table.clear();
    codeList = lowerCase(codeList);
    for (std::size_t start = 0; start < codeList.size();) {
        const std::size_t end = std::min(codeList.find(';', start), codeList.size());
        const std::string code = codeList.substr(start, end - start);
        for (const FamilyRow& row : familyRows) {
            if (equalIgnoringCase(code, row.code)) {
                table.emplace(code, deviceFamily(row));
            }
        }
        start = end + 1;
    }
    return !table.empty();
}

const DeviceFamily* findDeviceFamily(const DriverPackageTable& table, const std::string& code) {
    const auto found = table.find(code);
    return found == table.end() ? nullptr : &found->second;
}
