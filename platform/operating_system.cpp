#include "platform/operating_system.h"

#include <cstring>

#include "platform/ansi_text.h"
#include "platform/computer.h"
#include "platform/format_text.h"

namespace code = operating_system_code;

namespace {

using Release = OperatingSystemIdentity;  // before the service pack is appended to its name

OperatingSystemIdentity queryFailure(std::uint32_t error) {
    return {code::notRecognised,
            formatText("GetVersionEx failed with %d.", static_cast<int>(error)),
            NameDelivery::Direct};
}

OperatingSystemIdentity withServicePack(Release release, const OperatingSystemFacts& facts) {
    release.name += ' ' + facts.servicePack;
    return release;
}

OperatingSystemIdentity windows9x(const OperatingSystemFacts& facts) {
    if (facts.majorVersion != 4) {
        // Kept: this answer leaves before the name reaches the caller.
        return {code::notRecognised,
                formatText("Platform id is VER_PLATFORM_WIN32_WINDOWS but Major Version is %d"
                           " - should be 4.",
                           static_cast<int>(facts.majorVersion)),
                NameDelivery::Withheld};
    }
    switch (facts.minorVersion) {
        case 0:
            if (equalIgnoringCase(facts.servicePack, " C")) {
                return {code::windows95Osr2, "Windows 95 OSR2"};
            }
            return withServicePack({code::windows95, "Windows 95"}, facts);
        case 10:
            if (equalIgnoringCase(facts.servicePack, " A")) {
                return {code::windows98SecondEdition, "Windows 98 Second Edition"};
            }
            return withServicePack({code::windows98, "Windows 98"}, facts);
        case 90:
            return withServicePack({code::windowsMe, "Windows Me"}, facts);
        default:
            return withServicePack({}, facts);
    }
}

Release windows5(const OperatingSystemFacts& facts) {
    switch (facts.minorVersion) {
        case 0:
            return {code::windows2000, "Windows 2000"};
        case 1:
            return {code::windowsXp, "Windows XP"};
        case 2:
            // Kept: the architecture comes first and the product type is not looked at, so every
            // 64-bit 5.2 system takes the packages of the x64 edition.
            if (facts.nativeArchitecture == architectureAmd64) {
                return {code::windowsXpX64, "Windows XP Professional x64 Edition"};
            }
            if ((facts.suiteMask & suiteHomeServer) != 0) {
                return {code::homeServer, "Windows Home Server"};
            }
            return facts.serverR2Metric == 0
                       ? Release{code::server2003, "Windows Server 2003"}
                       : Release{code::server2003R2, "Windows Server 2003 R2"};
        default:
            return {};
    }
}

Release windows6OrLater(const OperatingSystemFacts& facts) {
    for (const auto& row : code::releaseRows) {
        if (row.majorVersion == facts.extendedMajorVersion &&
            row.minorVersion == facts.extendedMinorVersion) {
            return facts.productType == productTypeWorkstation
                       ? Release{row.workstationCode, row.workstationName}
                       : Release{row.serverCode, row.serverName};
        }
    }
    // Kept: the parenthesis stays open.
    return {code::unknownNewer,
            formatText("unknown or new (%d.%d", static_cast<int>(facts.extendedMajorVersion),
                       static_cast<int>(facts.extendedMinorVersion))};
}

Release windowsNt(const OperatingSystemFacts& facts) {
    switch (facts.majorVersion) {
        case 3:
            return {code::windowsNt351, "Windows NT 3.51"};
        case 4:
            return {code::windowsNt4, "Windows NT 4.0"};
        case 5:
            return windows5(facts);
        default:
            // Kept: a release newer than these has no name of its own, only its service pack.
            return code::isToldByExtendedQuery(facts.majorVersion) ? windows6OrLater(facts)
                   : facts.majorVersion < 3 ? Release{code::notRecognised, ""}
                                            : Release{code::unknownNewer, ""};
    }
}

}  // namespace

bool needsExtendedQuery(const OperatingSystemFacts& facts) {
    return facts.platformId == platformNt && (code::isToldByExtendedQuery(facts.majorVersion) ||
                                              (facts.majorVersion == 5 && facts.minorVersion == 2));
}

OperatingSystemIdentity identifyOperatingSystem(const OperatingSystemFacts& facts) {
    if (facts.queryError) {
        return queryFailure(*facts.queryError);
    }
    if (needsExtendedQuery(facts) && facts.extendedQueryError) {
        return queryFailure(*facts.extendedQueryError);
    }
    switch (facts.platformId) {
        case platformWin32s:
            return withServicePack({code::win32s, "Win32s"}, facts);
        case platformWindows:
            return windows9x(facts);
        case platformNt:
            return withServicePack(windowsNt(facts), facts);
        default:
            return withServicePack({}, facts);
    }
}

int deliverOperatingSystemName(const OperatingSystemIdentity& identity, char* buffer,
                               std::size_t size) {
    if (buffer == nullptr || size == 0) {
        return code::noBuffer;
    }
    if (identity.delivery == NameDelivery::Withheld) {
        return identity.code;
    }
    const bool checked = identity.delivery == NameDelivery::Checked;
    std::size_t length = identity.name.size();
    if (checked && length > size) {
        return code::nameTooLong;
    }
    if (length >= size) {
        length = checked ? 0 : size - 1;
    }
    std::memcpy(buffer, identity.name.data(), length);
    buffer[length] = '\0';
    return identity.code;
}

int operatingSystemCode(Computer& computer) {
    return identifyOperatingSystem(computer.operatingSystem()).code;
}

int operatingSystemName(Computer& computer, std::uint32_t& platformId, char* buffer,
                        std::size_t size, bool wantName) {
    platformId = 0;
    if (wantName && (buffer == nullptr || size == 0)) {
        return code::noBuffer;
    }
    const OperatingSystemFacts facts = computer.operatingSystem();
    platformId = facts.platformId;
    const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
    return wantName ? deliverOperatingSystemName(identity, buffer, size) : identity.code;
}

int operatingSystemName(Computer& computer, char* buffer, std::size_t size) {
    std::uint32_t platformId = 0;
    return operatingSystemName(computer, platformId, buffer, size, true);
}
