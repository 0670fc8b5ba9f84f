#include "platform/operating_system_win.h"

#include <windows.h>

#include <gtest/gtest.h>

TEST(OperatingSystem, AgreesWithWindows) {
    SYSTEM_INFO own{}, native{};
    GetSystemInfo(&own);
    GetNativeSystemInfo(&native);
    EXPECT_EQ(isWow64(), own.wProcessorArchitecture != native.wProcessorArchitecture);

    const OperatingSystemFacts facts = queryOperatingSystem();
    EXPECT_GE(identifyOperatingSystem(facts).code, operating_system_code::windowsXp);
    if (needsExtendedQuery(facts)) {
        EXPECT_EQ(facts.nativeArchitecture, native.wProcessorArchitecture);
        EXPECT_GE(facts.extendedMajorVersion, facts.majorVersion);
        EXPECT_NE(facts.productType, 0);
    }
}
