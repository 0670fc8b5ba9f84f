#include "platform/operating_system.h"

#include <gtest/gtest.h>

namespace {

/// A version that both queries report alike.
OperatingSystemFacts reported(std::uint32_t platformId, std::uint32_t major, std::uint32_t minor,
                              const char* servicePack = "SP") {
    OperatingSystemFacts facts;
    facts.platformId = platformId;
    facts.majorVersion = facts.extendedMajorVersion = major;
    facts.minorVersion = facts.extendedMinorVersion = minor;
    facts.servicePack = servicePack;
    facts.productType = 1;
    return facts;
}

OperatingSystemFacts server(OperatingSystemFacts facts) {
    facts.productType = 3;
    return facts;
}

OperatingSystemFacts extended(std::uint32_t major, std::uint32_t minor) {
    OperatingSystemFacts facts = reported(2, 6, 2);
    facts.extendedMajorVersion = major;
    facts.extendedMinorVersion = minor;
    return facts;
}

OperatingSystemFacts windows5Point2(std::uint16_t architecture, std::uint16_t suite, int metric) {
    OperatingSystemFacts facts = reported(2, 5, 2);
    facts.nativeArchitecture = architecture;
    facts.suiteMask = suite;
    facts.serverR2Metric = metric;
    return facts;
}

TEST(OperatingSystem, EveryRelease) {
    struct {
        OperatingSystemFacts facts;
        int code;
        const char* name;
    } const cases[] = {
        {reported(0, 3, 11), 0, "Win32s SP"},
        {reported(1, 4, 0, " c"), 2, "Windows 95 OSR2"},
        {reported(1, 4, 0, " B"), 1, "Windows 95  B"},
        {reported(1, 4, 0, ""), 1, "Windows 95 "},
        {reported(1, 4, 10, " A"), 4, "Windows 98 Second Edition"},
        {reported(1, 4, 10, "A"), 3, "Windows 98 A"},
        {reported(1, 4, 90), 5, "Windows Me SP"},
        {reported(1, 4, 11), -1, " SP"},
        {reported(2, 0, 0), -1, " SP"},
        {reported(2, 2, 9), -1, " SP"},
        {reported(2, 3, 51), 6, "Windows NT 3.51 SP"},
        {reported(2, 3, 1), 6, "Windows NT 3.51 SP"},
        {reported(2, 4, 0, "Service Pack 6"), 7, "Windows NT 4.0 Service Pack 6"},
        {reported(2, 5, 0), 8, "Windows 2000 SP"},
        {reported(2, 5, 1, "Service Pack 3"), 9, "Windows XP Service Pack 3"},
        {windows5Point2(9, 0x8000, 1), 10, "Windows XP Professional x64 Edition SP"},
        {server(windows5Point2(9, 0, 0)), 10, "Windows XP Professional x64 Edition SP"},
        {windows5Point2(0, 0x8110, 1), 12, "Windows Home Server SP"},
        {windows5Point2(0, 0x7FFF, 0), 11, "Windows Server 2003 SP"},
        {windows5Point2(0, 0, 2), 13, "Windows Server 2003 R2 SP"},
        {reported(2, 5, 3), -1, " SP"},
        {reported(2, 6, 0), 14, "Windows Vista SP"},
        {server(reported(2, 6, 0)), 15, "Windows Server 2008 SP"},
        {reported(2, 6, 1, ""), 17, "Windows 7 "},
        {server(reported(2, 6, 1)), 16, "Windows Server 2008 R2 SP"},
        {reported(2, 6, 2), 18, "Windows 8 SP"},
        {server(reported(2, 6, 2)), 19, "Windows Server 2012 SP"},
        {reported(2, 6, 3), 20, "Windows 8.1 SP"},
        {server(reported(2, 6, 3)), 21, "Windows Server 2012 R2 SP"},
        {extended(10, 0), 22, "Windows 10 Insider Preview SP"},
        {server(extended(10, 0)), 23, "Windows Server 10 Technical Preview SP"},
        {reported(2, 6, 4), 24, "unknown or new (6.4 SP"},
        {extended(10, 1), 24, "unknown or new (10.1 SP"},
        {extended(7, 0), 24, "unknown or new (7.0 SP"},
        {reported(2, 7, 0), 24, " SP"},
        {reported(2, 10, 0), 24, " SP"},
        {reported(3, 6, 1), -1, " SP"},
    };
    for (const auto& row : cases) {
        const OperatingSystemIdentity identity = identifyOperatingSystem(row.facts);
        EXPECT_EQ(identity.code, row.code) << row.name;
        EXPECT_EQ(identity.name, row.name);
        EXPECT_EQ(identity.delivery, NameDelivery::Checked) << row.name;
    }
}

TEST(OperatingSystem, ExtendedQueryServesServer2003AndVersion6) {
    EXPECT_TRUE(needsExtendedQuery(reported(2, 5, 2)));
    EXPECT_TRUE(needsExtendedQuery(reported(2, 6, 4)));
    EXPECT_FALSE(needsExtendedQuery(reported(2, 5, 1)));
    EXPECT_FALSE(needsExtendedQuery(reported(2, 10, 0)));
    EXPECT_FALSE(needsExtendedQuery(reported(1, 6, 0)));
}

TEST(OperatingSystem, FailedQueriesNameTheirError) {
    OperatingSystemFacts first;
    first.queryFailed = true;
    first.queryError = 122;
    EXPECT_EQ(identifyOperatingSystem(first).name, "GetVersionEx failed with 122.");
    for (OperatingSystemFacts second : {reported(2, 5, 2), reported(2, 6, 1)}) {
        second.extendedQueryFailed = true;
        second.extendedQueryError = 87;
        EXPECT_EQ(identifyOperatingSystem(second).name, "GetVersionEx failed with 87.");
        EXPECT_EQ(identifyOperatingSystem(second).code, -1);
    }
    char buffer[8] = "before";
    EXPECT_EQ(deliverOperatingSystemName(identifyOperatingSystem(first), buffer, 8), -1);
    EXPECT_STREQ(buffer, "GetVers");
}

TEST(OperatingSystem, ForeignMajorOfWindows9xKeepsTheBuffer) {
    const OperatingSystemIdentity identity = identifyOperatingSystem(reported(1, 5, 0));
    EXPECT_EQ(identity.name,
              "Platform id is VER_PLATFORM_WIN32_WINDOWS but Major Version is 5 - should be 4.");
    char buffer[8] = "before";
    EXPECT_EQ(deliverOperatingSystemName(identity, buffer, 8), -1);
    EXPECT_STREQ(buffer, "before");
}

TEST(OperatingSystem, NameMeetsTheBuffersSize) {
    const OperatingSystemIdentity xp{9, "Windows XP ", NameDelivery::Checked};
    struct {
        std::size_t size;
        int code;
        const char* content;
    } const cases[] = {{0, -3, "before"}, {10, -2, "before"}, {11, 9, ""}, {12, 9, "Windows XP "}};
    for (const auto& row : cases) {
        char buffer[12] = "before";
        EXPECT_EQ(deliverOperatingSystemName(xp, buffer, row.size), row.code) << row.size;
        EXPECT_STREQ(buffer, row.content) << row.size;
    }
    EXPECT_EQ(deliverOperatingSystemName(xp, nullptr, 12), -3);
}

}  // namespace
