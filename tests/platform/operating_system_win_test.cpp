#include "platform/operating_system_win.h"

#include <windows.h>

#include <gtest/gtest.h>

TEST(OperatingSystem, AgreesWithWindows) {
    SYSTEM_INFO own{}, native{};
    GetSystemInfo(&own);
    GetNativeSystemInfo(&native);
    EXPECT_EQ(isWow64(), own.wProcessorArchitecture != native.wProcessorArchitecture);

    std::uint32_t platformId = 99;
    char name[256] = "";
    const int code = operatingSystemName(platformId, name, sizeof name, true);
    EXPECT_EQ(platformId, DWORD{VER_PLATFORM_WIN32_NT});
    EXPECT_GE(code, operating_system_code::windowsXp);
    EXPECT_EQ(code, operatingSystemCode());
    EXPECT_EQ(code, operatingSystemName(name, sizeof name));
    EXPECT_EQ(code, operatingSystemName(platformId, nullptr, 0, false));
    const OperatingSystemFacts facts = queryOperatingSystem();
    EXPECT_EQ(identifyOperatingSystem(facts).name, name);
    if (needsExtendedQuery(facts)) {
        EXPECT_EQ(facts.nativeArchitecture, native.wProcessorArchitecture);
        EXPECT_GE(facts.extendedMajorVersion, facts.majorVersion);
        EXPECT_NE(facts.productType, 0);
    }
    EXPECT_EQ(operatingSystemName(platformId, nullptr, 256, true), operating_system_code::noBuffer);
    EXPECT_EQ(platformId, 0u);
    EXPECT_EQ(operatingSystemName(name, 1), operating_system_code::nameTooLong);
}
