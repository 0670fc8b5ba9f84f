#include "platform/operating_system.h"

#include <cstdio>

#include "tests/rows.h"

namespace {

/// Platform, major and minor version, then what only the second query tells: product type,
/// architecture, suite (hexadecimal), R2 metric and, where it tells others, its version. What
/// follows a "|" is the service pack, else "SP".
OperatingSystemFacts factsOf(const std::string& text) {
    unsigned platform = 0, major = 0, minor = 0, type = 1, architecture = 0, suite = 0;
    int serverR2 = 0;
    OperatingSystemFacts facts;
    std::sscanf(text.c_str(), "%u %u %u %u %u %x %d", &platform, &major, &minor, &type,
                &architecture, &suite, &serverR2);
    facts.platformId = platform;
    facts.majorVersion = facts.extendedMajorVersion = major;
    facts.minorVersion = facts.extendedMinorVersion = minor;
    std::sscanf(text.c_str(), "%*u %*u %*u %*u %*u %*x %*d %u %u", &facts.extendedMajorVersion,
                &facts.extendedMinorVersion);
    facts.productType = static_cast<std::uint8_t>(type);
    facts.nativeArchitecture = static_cast<std::uint16_t>(architecture);
    facts.suiteMask = static_cast<std::uint16_t>(suite);
    facts.serverR2Metric = serverR2;
    const std::size_t bar = text.find('|');
    facts.servicePack = bar == std::string::npos ? "SP" : text.substr(bar + 1);
    return facts;
}

}  // namespace

TEST(OperatingSystem, HasACodeAndANameForEveryRelease) {
    expectRows<std::string, std::string>(
        {{"0 3 11", "0 Win32s SP"},
         {"1 4 0| c", "2 Windows 95 OSR2"},
         {"1 4 0| B", "1 Windows 95  B"},
         {"1 4 0|", "1 Windows 95 "},
         {"1 4 10| A", "4 Windows 98 Second Edition"},
         {"1 4 10|A", "3 Windows 98 A"},
         {"1 4 90", "5 Windows Me SP"},
         {"1 4 11", "-1  SP"},
         {"2 0 0", "-1  SP"},
         {"2 2 9", "-1  SP"},
         {"2 3 51", "6 Windows NT 3.51 SP"},
         {"2 3 1", "6 Windows NT 3.51 SP"},
         {"2 4 0", "7 Windows NT 4.0 SP"},
         {"2 5 0", "8 Windows 2000 SP"},
         {"2 5 1", "9 Windows XP SP"},
         {"2 5 2 1 9 8000 1", "10 Windows XP Professional x64 Edition SP, extended"},
         {"2 5 2 3 9", "10 Windows XP Professional x64 Edition SP, extended"},
         {"2 5 2 1 0 8110 1", "12 Windows Home Server SP, extended"},
         {"2 5 2 1 0 7FFF", "11 Windows Server 2003 SP, extended"},
         {"2 5 2 1 0 0 2", "13 Windows Server 2003 R2 SP, extended"},
         {"2 5 3", "-1  SP"},
         {"2 6 0", "14 Windows Vista SP, extended"},
         {"2 6 0 3", "15 Windows Server 2008 SP, extended"},
         {"2 6 1|", "17 Windows 7 , extended"},
         {"2 6 1 3", "16 Windows Server 2008 R2 SP, extended"},
         {"2 6 2", "18 Windows 8 SP, extended"},
         {"2 6 2 3", "19 Windows Server 2012 SP, extended"},
         {"2 6 3", "20 Windows 8.1 SP, extended"},
         {"2 6 3 3", "21 Windows Server 2012 R2 SP, extended"},
         {"2 6 4", "24 unknown or new (6.4 SP, extended"},
         {"2 7 0", "24  SP"},
         {"2 10 0", "24  SP"},
         {"3 6 1", "-1  SP"},
         // The first query reports 6.2 for everything that is newer.
         {"2 6 2 1 0 0 0 10 0", "22 Windows 10 Insider Preview SP, extended"},
         {"2 6 2 3 0 0 0 10 0", "23 Windows Server 10 Technical Preview SP, extended"},
         {"2 6 2 1 0 0 0 10 1", "24 unknown or new (10.1 SP, extended"},
         {"2 6 2 1 0 0 0 7 0", "24 unknown or new (7.0 SP, extended"}},
        [](const std::string& release) {
            const OperatingSystemFacts facts = factsOf(release);
            const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
            EXPECT_EQ(identity.delivery, NameDelivery::Checked);
            return std::to_string(identity.code) + ' ' + identity.name +
                   (needsExtendedQuery(facts) ? ", extended" : "");
        });
}

TEST(OperatingSystem, FailuresReachTheBufferOrLeaveIt) {
    OperatingSystemFacts first;
    first.queryError = 122;
    const OperatingSystemIdentity failed = identifyOperatingSystem(first);
    EXPECT_EQ(failed.name, "GetVersionEx failed with 122.");
    for (OperatingSystemFacts second : {factsOf("2 5 2"), factsOf("2 6 1")}) {
        second.extendedQueryError = 87;
        EXPECT_EQ(identifyOperatingSystem(second).name, "GetVersionEx failed with 87.");
        EXPECT_EQ(identifyOperatingSystem(second).code, -1);
    }
    const OperatingSystemIdentity foreign = identifyOperatingSystem(factsOf("1 5 0"));
    EXPECT_EQ(foreign.name,
              "Platform id is VER_PLATFORM_WIN32_WINDOWS but Major Version is 5 - should be 4.");

    const OperatingSystemIdentity xp{9, "Windows XP ", NameDelivery::Checked};
    EXPECT_EQ(deliverOperatingSystemName(xp, nullptr, 12), -3);
    expectRows<std::tuple<const OperatingSystemIdentity*, std::size_t>, std::string>(
        {{{&xp, 0}, "-3 before"},
         {{&xp, 10}, "-2 before"},
         {{&xp, 11}, "9 "},
         {{&xp, 12}, "9 Windows XP "},
         {{&failed, 8}, "-1 GetVers"},
         {{&foreign, 12}, "-1 before"}},
        [](const OperatingSystemIdentity* identity, std::size_t size) {
            char buffer[12] = "before";
            const int code = deliverOperatingSystemName(*identity, buffer, size);
            return std::to_string(code) + ' ' + buffer;
        });
}
