#include "platform/operating_system.h"

#include "tests/rows.h"

namespace code = operating_system_code;

namespace {

constexpr std::uint32_t onDos = 0, windows9x = 1, nt = 2;
constexpr std::uint8_t workstation = 1, server = 3;
constexpr std::uint16_t x86 = 0, amd64 = 9, homeServerSuite = 0x8110, otherSuites = 0x7FFF;

/// What Windows tells, with "SP" for its service pack.
struct Release {
    std::uint32_t platform, major, minor;
    std::uint8_t productType = workstation;
    std::uint16_t architecture = x86, suites = 0;
    int serverR2Metric = 0;
    /// What the second query says, where the first one reports 6.2 for everything that is newer.
    std::optional<std::pair<std::uint32_t, std::uint32_t>> actual = {};
    std::string servicePack = "SP";
};

OperatingSystemFacts factsOf(const Release& release) {
    OperatingSystemFacts facts;
    facts.platformId = release.platform;
    facts.majorVersion = release.major;
    facts.minorVersion = release.minor;
    std::tie(facts.extendedMajorVersion, facts.extendedMinorVersion) =
        release.actual.value_or(std::pair(release.major, release.minor));
    facts.servicePack = release.servicePack;
    facts.productType = release.productType;
    facts.nativeArchitecture = release.architecture;
    facts.suiteMask = release.suites;
    facts.serverR2Metric = release.serverR2Metric;
    return facts;
}

}  // namespace

TEST(OperatingSystem, HasACodeAndANameForEveryRelease) {
    const struct {
        Release release;
        int code;
        std::string name;
    } rows[] = {
        {{onDos, 3, 11}, code::win32s, "Win32s SP"},
        {{.platform = windows9x, .major = 4, .minor = 0, .servicePack = " c"},
         code::windows95Osr2,
         "Windows 95 OSR2"},
        {{.platform = windows9x, .major = 4, .minor = 0, .servicePack = " B"},
         code::windows95,
         "Windows 95  B"},
        {{.platform = windows9x, .major = 4, .minor = 0, .servicePack = ""},
         code::windows95,
         "Windows 95 "},
        {{.platform = windows9x, .major = 4, .minor = 10, .servicePack = " A"},
         code::windows98SecondEdition,
         "Windows 98 Second Edition"},
        {{.platform = windows9x, .major = 4, .minor = 10, .servicePack = "A"},
         code::windows98,
         "Windows 98 A"},
        {{windows9x, 4, 90}, code::windowsMe, "Windows Me SP"},
        {{windows9x, 4, 11}, code::notRecognised, " SP"},
        {{nt, 0, 0}, code::notRecognised, " SP"},
        {{nt, 2, 9}, code::notRecognised, " SP"},
        {{nt, 3, 51}, code::windowsNt351, "Windows NT 3.51 SP"},
        {{nt, 3, 1}, code::windowsNt351, "Windows NT 3.51 SP"},
        {{nt, 4, 0}, code::windowsNt4, "Windows NT 4.0 SP"},
        {{nt, 5, 0}, code::windows2000, "Windows 2000 SP"},
        {{nt, 5, 1}, code::windowsXp, "Windows XP SP"},
        {{nt, 5, 2, workstation, amd64, homeServerSuite, 1},
         code::windowsXpX64,
         "Windows XP Professional x64 Edition SP"},
        {{nt, 5, 2, server, amd64}, code::windowsXpX64, "Windows XP Professional x64 Edition SP"},
        {{nt, 5, 2, workstation, x86, homeServerSuite, 1},
         code::homeServer,
         "Windows Home Server SP"},
        {{nt, 5, 2, workstation, x86, otherSuites}, code::server2003, "Windows Server 2003 SP"},
        {{nt, 5, 2, workstation, x86, 0, 2}, code::server2003R2, "Windows Server 2003 R2 SP"},
        {{nt, 5, 3}, code::notRecognised, " SP"},
        {{nt, 6, 0}, code::windowsVista, "Windows Vista SP"},
        {{nt, 6, 0, server}, code::server2008, "Windows Server 2008 SP"},
        {{.platform = nt, .major = 6, .minor = 1, .servicePack = ""}, code::windows7, "Windows 7 "},
        {{nt, 6, 1, server}, code::server2008R2, "Windows Server 2008 R2 SP"},
        {{nt, 6, 2}, code::windows8, "Windows 8 SP"},
        {{nt, 6, 2, server}, code::server2012, "Windows Server 2012 SP"},
        {{nt, 6, 3}, code::windows81, "Windows 8.1 SP"},
        {{nt, 6, 3, server}, code::server2012R2, "Windows Server 2012 R2 SP"},
        {{nt, 6, 4}, code::unknownNewer, "unknown or new (6.4 SP"},
        {{nt, 7, 0}, code::unknownNewer, " SP"},
        {{nt, 10, 0}, code::unknownNewer, " SP"},
        {{3, 6, 1}, code::notRecognised, " SP"},
        {{nt, 6, 2, workstation, x86, 0, 0, {{10, 0}}},
         code::windows10,
         "Windows 10 Insider Preview SP"},
        {{nt, 6, 2, server, x86, 0, 0, {{10, 0}}},
         code::server10,
         "Windows Server 10 Technical Preview SP"},
        {{nt, 6, 2, workstation, x86, 0, 0, {{10, 1}}},
         code::unknownNewer,
         "unknown or new (10.1 SP"},
        {{nt, 6, 2, workstation, x86, 0, 0, {{7, 0}}},
         code::unknownNewer,
         "unknown or new (7.0 SP"}};
    for (const auto& row : rows) {
        const OperatingSystemFacts facts = factsOf(row.release);
        const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
        EXPECT_EQ(identity.name, row.name);
        EXPECT_EQ(identity.code, row.code) << row.name;
        EXPECT_EQ(identity.delivery, NameDelivery::Checked) << row.name;
        const Release& release = row.release;
        EXPECT_EQ(needsExtendedQuery(facts),
                  release.platform == nt &&
                      (release.major == 6 || (release.major == 5 && release.minor == 2)))
            << row.name;
    }
}

TEST(OperatingSystem, FailuresReachTheBufferOrLeaveIt) {
    OperatingSystemFacts first;
    first.queryError = 122;
    const OperatingSystemIdentity failed = identifyOperatingSystem(first);
    EXPECT_EQ(failed.name, "GetVersionEx failed with 122.");
    for (OperatingSystemFacts second : {factsOf({nt, 5, 2}), factsOf({nt, 6, 1})}) {
        second.extendedQueryError = 87;
        EXPECT_EQ(identifyOperatingSystem(second).name, "GetVersionEx failed with 87.");
        EXPECT_EQ(identifyOperatingSystem(second).code, code::notRecognised);
    }
    const OperatingSystemIdentity foreign = identifyOperatingSystem(factsOf({windows9x, 5, 0}));
    EXPECT_EQ(foreign.name,
              "Platform id is VER_PLATFORM_WIN32_WINDOWS but Major Version is 5 - should be 4.");

    const OperatingSystemIdentity xp{code::windowsXp, "Windows XP ", NameDelivery::Checked};
    EXPECT_EQ(deliverOperatingSystemName(xp, nullptr, 12), code::noBuffer);
    const struct {
        OperatingSystemIdentity identity;
        std::size_t size;
        int code;
        std::string buffer;
    } rows[] = {{xp, 0, code::noBuffer, "before"},
                {xp, 10, code::nameTooLong, "before"},
                {xp, 11, code::windowsXp, ""},
                {xp, 12, code::windowsXp, "Windows XP "},
                {failed, 8, code::notRecognised, "GetVers"},
                {foreign, 12, code::notRecognised, "before"}};
    for (const auto& row : rows) {
        char buffer[12] = "before";
        EXPECT_EQ(deliverOperatingSystemName(row.identity, buffer, row.size), row.code);
        EXPECT_EQ(buffer, row.buffer) << row.identity.name << " into " << row.size;
    }
}
