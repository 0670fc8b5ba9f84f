#include "platform/operating_system_query.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

TEST(OperatingSystemQuery, AgreesWithWindows) {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExA(&version));
    std::uint32_t platformId = 99;
    char name[256] = "";
    const int code = operatingSystemName(platformId, name, sizeof name, true);
    EXPECT_EQ(platformId, version.dwPlatformId);
    EXPECT_EQ(code, operatingSystemCode());
    EXPECT_EQ(code, operatingSystemName(name, sizeof name));
    EXPECT_EQ(code, operatingSystemName(platformId, nullptr, 0, false));
    EXPECT_EQ(identifyOperatingSystem(queryOperatingSystem()).name, name);
    // Whatever this machine is, it is no older than the program supports.
    EXPECT_GE(code, operating_system_code::windowsXp);
    EXPECT_EQ(std::string(name).substr(0, 8), "Windows ");

    EXPECT_EQ(operatingSystemName(platformId, nullptr, 256, true), operating_system_code::noBuffer);
    EXPECT_EQ(platformId, 0u);
    EXPECT_EQ(operatingSystemName(name, 1), operating_system_code::nameTooLong);
}

TEST(OperatingSystemQuery, Wow64IsA32BitProcessOn64BitWindows) {
    SYSTEM_INFO own{}, native{};
    GetSystemInfo(&own);
    GetNativeSystemInfo(&native);
    EXPECT_EQ(isWow64(), own.wProcessorArchitecture != native.wProcessorArchitecture);
}

}  // namespace
