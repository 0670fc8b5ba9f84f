#include "platform/operating_system.h"

#include "tests/rows.h"

using namespace operating_system_code;

namespace {

constexpr std::uint32_t onDos = 0, windows9x = 1;

/// What Windows tells, with "SP" for its service pack.
struct Reported : OperatingSystemFacts {
    Reported(std::uint32_t platform, std::uint32_t major, std::uint32_t minor) {
        platformId = platform;
        majorVersion = extendedMajorVersion = major;
        minorVersion = extendedMinorVersion = minor;
        servicePack = "SP";
        productType = productTypeWorkstation;
    }
    Reported server() && { return productType = 3, *this; }
    Reported pack(const char* text) && { return servicePack = text, *this; }
    Reported amd64() && { return nativeArchitecture = architectureAmd64, *this; }
    Reported suites(std::uint16_t mask) && { return suiteMask = mask, *this; }
    Reported r2(int metric) && { return serverR2Metric = metric, *this; }
    /// What the second query says, where the first one reports 6.2 for everything that is newer.
    Reported actually(std::uint32_t major, std::uint32_t minor) && {
        return extendedMajorVersion = major, extendedMinorVersion = minor, *this;
    }
};
Reported nt(std::uint32_t major, std::uint32_t minor) {
    return {platformNt, major, minor};
}

}  // namespace

TEST(OperatingSystem, HasACodeAndANameForEveryRelease) {
    constexpr std::uint16_t otherSuites = 0x7FFF;
    const std::tuple<Reported, int, std::string> rows[] = {
        {{onDos, 3, 11}, win32s, "Win32s SP"},
        {Reported(windows9x, 4, 0).pack(" c"), windows95Osr2, "Windows 95 OSR2"},
        {Reported(windows9x, 4, 0).pack(" B"), windows95, "Windows 95  B"},
        {Reported(windows9x, 4, 10).pack(" A"), windows98SecondEdition,
         "Windows 98 Second Edition"},
        {Reported(windows9x, 4, 10).pack("A"), windows98, "Windows 98 A"},
        {{windows9x, 4, 90}, windowsMe, "Windows Me SP"},
        {{windows9x, 4, 11}, notRecognised, " SP"},
        {nt(2, 9), notRecognised, " SP"},
        {nt(3, 1), windowsNt351, "Windows NT 3.51 SP"},
        {nt(4, 0), windowsNt4, "Windows NT 4.0 SP"},
        {nt(5, 0), windows2000, "Windows 2000 SP"},
        {nt(5, 1), windowsXp, "Windows XP SP"},
        {nt(5, 2).amd64().suites(suiteHomeServer).r2(1), windowsXpX64,
         "Windows XP Professional x64 Edition SP"},
        {nt(5, 2).server().amd64(), windowsXpX64, "Windows XP Professional x64 Edition SP"},
        {nt(5, 2).suites(suiteHomeServer | 0x110).r2(1), homeServer, "Windows Home Server SP"},
        {nt(5, 2).suites(otherSuites), server2003, "Windows Server 2003 SP"},
        {nt(5, 2).r2(2), server2003R2, "Windows Server 2003 R2 SP"},
        {nt(5, 3), notRecognised, " SP"},
        {nt(6, 0), windowsVista, "Windows Vista SP"},
        {nt(6, 0).server(), server2008, "Windows Server 2008 SP"},
        {nt(6, 1).pack(""), windows7, "Windows 7 "},
        {nt(6, 1).server(), server2008R2, "Windows Server 2008 R2 SP"},
        {nt(6, 2), windows8, "Windows 8 SP"},
        {nt(6, 2).server(), server2012, "Windows Server 2012 SP"},
        {nt(6, 3), windows81, "Windows 8.1 SP"},
        {nt(6, 3).server(), server2012R2, "Windows Server 2012 R2 SP"},
        {nt(6, 4), unknownNewer, "unknown or new (6.4 SP"},
        {nt(7, 0), unknownNewer, " SP"},
        {{3, 6, 1}, notRecognised, " SP"},
        {nt(6, 2).actually(10, 0), windows10, "Windows 10 Insider Preview SP"},
        {nt(6, 2).server().actually(10, 0), server10, "Windows Server 10 Technical Preview SP"},
        {nt(6, 2).actually(10, 1), unknownNewer, "unknown or new (10.1 SP"}};
    for (const auto& [facts, code, name] : rows) {
        const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
        EXPECT_EQ(identity.name, name);
        EXPECT_EQ(identity.code, code) << name;
        EXPECT_EQ(identity.delivery, NameDelivery::Checked) << name;
    }
}

TEST(OperatingSystem, FailuresReachTheBufferOrLeaveIt) {
    OperatingSystemFacts first;
    first.queryError = 122;
    const OperatingSystemIdentity failed = identifyOperatingSystem(first);
    EXPECT_EQ(failed.name, "GetVersionEx failed with 122.");
    for (OperatingSystemFacts second : {nt(5, 2), nt(6, 1)}) {
        second.extendedQueryError = 87;
        EXPECT_EQ(identifyOperatingSystem(second).name, "GetVersionEx failed with 87.");
        EXPECT_EQ(identifyOperatingSystem(second).code, notRecognised);
    }
    for (OperatingSystemFacts withoutSecond : {nt(5, 1), Reported(windows9x, 4, 90)}) {
        withoutSecond.extendedQueryError = 87;
        EXPECT_NE(identifyOperatingSystem(withoutSecond).code, notRecognised);
    }
    const OperatingSystemIdentity foreign = identifyOperatingSystem(Reported(windows9x, 5, 0));
    EXPECT_EQ(foreign.name,
              "Platform id is VER_PLATFORM_WIN32_WINDOWS but Major Version is 5 - should be 4.");

    const OperatingSystemIdentity xp{windowsXp, "Windows XP ", NameDelivery::Checked};
    EXPECT_EQ(deliverOperatingSystemName(xp, nullptr, 12), noBuffer);
    const std::tuple<OperatingSystemIdentity, std::size_t, int, std::string> rows[] = {
        {xp, 0, noBuffer, "before"},
        {xp, 10, nameTooLong, "before"},
        {xp, 11, windowsXp, ""},
        {xp, 12, windowsXp, "Windows XP "},
        {failed, 8, notRecognised, "GetVers"},
        {foreign, 12, notRecognised, "before"}};
    for (const auto& [identity, size, code, expected] : rows) {
        char buffer[12] = "before";
        EXPECT_EQ(deliverOperatingSystemName(identity, buffer, size), code);
        EXPECT_EQ(buffer, expected) << identity.name << " into " << size;
    }
}
