#include "platform/operating_system.h"

#include <gtest/gtest.h>

namespace {

/// What both queries report alike, and what only the second one does.
struct Release {
    std::uint32_t platformId, major, minor;
    std::uint8_t productType = 1;
    std::uint16_t architecture = 0, suite = 0;
    int serverR2 = 0;
};

OperatingSystemFacts factsOf(const Release& release, const char* servicePack = "SP") {
    OperatingSystemFacts facts;
    facts.platformId = release.platformId;
    facts.majorVersion = facts.extendedMajorVersion = release.major;
    facts.minorVersion = facts.extendedMinorVersion = release.minor;
    facts.productType = release.productType;
    facts.nativeArchitecture = release.architecture;
    facts.suiteMask = release.suite;
    facts.serverR2Metric = release.serverR2;
    facts.servicePack = servicePack;
    return facts;
}

}  // namespace

TEST(OperatingSystem, EveryRelease) {
    struct {
        Release release;
        int code;
        const char* name;
        const char* servicePack = "SP";
    } const cases[] = {
        {{0, 3, 11}, 0, "Win32s SP"},
        {{1, 4, 0}, 2, "Windows 95 OSR2", " c"},
        {{1, 4, 0}, 1, "Windows 95  B", " B"},
        {{1, 4, 0}, 1, "Windows 95 ", ""},
        {{1, 4, 10}, 4, "Windows 98 Second Edition", " A"},
        {{1, 4, 10}, 3, "Windows 98 A", "A"},
        {{1, 4, 90}, 5, "Windows Me SP"},
        {{1, 4, 11}, -1, " SP"},
        {{2, 0, 0}, -1, " SP"},
        {{2, 2, 9}, -1, " SP"},
        {{2, 3, 51}, 6, "Windows NT 3.51 SP"},
        {{2, 3, 1}, 6, "Windows NT 3.51 SP"},
        {{2, 4, 0}, 7, "Windows NT 4.0 SP"},
        {{2, 5, 0}, 8, "Windows 2000 SP"},
        {{2, 5, 1}, 9, "Windows XP SP"},
        {{2, 5, 2, 1, 9, 0x8000, 1}, 10, "Windows XP Professional x64 Edition SP"},
        {{2, 5, 2, 3, 9}, 10, "Windows XP Professional x64 Edition SP"},
        {{2, 5, 2, 1, 0, 0x8110, 1}, 12, "Windows Home Server SP"},
        {{2, 5, 2, 1, 0, 0x7FFF}, 11, "Windows Server 2003 SP"},
        {{2, 5, 2, 1, 0, 0, 2}, 13, "Windows Server 2003 R2 SP"},
        {{2, 5, 3}, -1, " SP"},
        {{2, 6, 0}, 14, "Windows Vista SP"},
        {{2, 6, 0, 3}, 15, "Windows Server 2008 SP"},
        {{2, 6, 1}, 17, "Windows 7 ", ""},
        {{2, 6, 1, 3}, 16, "Windows Server 2008 R2 SP"},
        {{2, 6, 2}, 18, "Windows 8 SP"},
        {{2, 6, 2, 3}, 19, "Windows Server 2012 SP"},
        {{2, 6, 3}, 20, "Windows 8.1 SP"},
        {{2, 6, 3, 3}, 21, "Windows Server 2012 R2 SP"},
        {{2, 6, 4}, 24, "unknown or new (6.4 SP"},
        {{2, 7, 0}, 24, " SP"},
        {{2, 10, 0}, 24, " SP"},
        {{3, 6, 1}, -1, " SP"},
    };
    for (const auto& row : cases) {
        const OperatingSystemFacts facts = factsOf(row.release, row.servicePack);
        const OperatingSystemIdentity identity = identifyOperatingSystem(facts);
        EXPECT_EQ(identity.code, row.code) << row.name;
        EXPECT_EQ(identity.name, row.name);
        EXPECT_EQ(identity.delivery, NameDelivery::Checked) << row.name;
        EXPECT_EQ(
            needsExtendedQuery(facts),
            row.release.platformId == 2 &&
                (row.release.major == 6 || (row.release.major == 5 && row.release.minor == 2)))
            << row.name;
    }
}

// The first query reports 6.2 for everything that is newer.
TEST(OperatingSystem, ExtendedQueryKnowsTheNewest) {
    struct {
        std::uint32_t major, minor;
        std::uint8_t productType;
        int code;
        const char* name;
    } const cases[] = {
        {10, 0, 1, 22, "Windows 10 Insider Preview SP"},
        {10, 0, 3, 23, "Windows Server 10 Technical Preview SP"},
        {10, 1, 1, 24, "unknown or new (10.1 SP"},
        {7, 0, 1, 24, "unknown or new (7.0 SP"},
    };
    for (const auto& row : cases) {
        OperatingSystemFacts facts = factsOf({2, 6, 2, row.productType});
        facts.extendedMajorVersion = row.major;
        facts.extendedMinorVersion = row.minor;
        EXPECT_EQ(identifyOperatingSystem(facts).code, row.code);
        EXPECT_EQ(identifyOperatingSystem(facts).name, row.name);
    }
}

TEST(OperatingSystem, FailuresReachTheBufferOrLeaveIt) {
    OperatingSystemFacts first;
    first.queryFailed = true;
    first.queryError = 122;
    const OperatingSystemIdentity failed = identifyOperatingSystem(first);
    EXPECT_EQ(failed.name, "GetVersionEx failed with 122.");
    for (OperatingSystemFacts second : {factsOf({2, 5, 2}), factsOf({2, 6, 1})}) {
        second.extendedQueryFailed = true;
        second.extendedQueryError = 87;
        EXPECT_EQ(identifyOperatingSystem(second).name, "GetVersionEx failed with 87.");
        EXPECT_EQ(identifyOperatingSystem(second).code, -1);
    }
    const OperatingSystemIdentity foreign = identifyOperatingSystem(factsOf({1, 5, 0}));
    EXPECT_EQ(foreign.name,
              "Platform id is VER_PLATFORM_WIN32_WINDOWS but Major Version is 5 - should be 4.");

    const OperatingSystemIdentity xp{9, "Windows XP ", NameDelivery::Checked};
    struct {
        const OperatingSystemIdentity& identity;
        std::size_t size;
        int code;
        const char* content;
    } const cases[] = {
        {xp, 0, -3, "before"},      {xp, 10, -2, "before"},     {xp, 11, 9, ""},
        {xp, 12, 9, "Windows XP "}, {failed, 8, -1, "GetVers"}, {foreign, 12, -1, "before"},
    };
    for (const auto& row : cases) {
        char buffer[12] = "before";
        EXPECT_EQ(deliverOperatingSystemName(row.identity, buffer, row.size), row.code);
        EXPECT_STREQ(buffer, row.content) << row.size;
    }
    EXPECT_EQ(deliverOperatingSystemName(xp, nullptr, 12), -3);
}
