#include "app/environment.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/operating_system.h"

namespace code = operating_system_code;

// Every other release passes without a word.
TEST(Environment, HasAnAnswerForEveryOperatingSystem) {
    const std::vector<int> refused = {code::win32s,
                                      code::windows95,
                                      code::windows95Osr2,
                                      code::windows98,
                                      code::windows98SecondEdition,
                                      code::windowsMe,
                                      code::windowsNt351,
                                      code::windowsNt4};
    const std::vector<int> askedAbout = {code::windows2000,  code::server2003, code::homeServer,
                                         code::server2003R2, code::server2008, code::server2008R2,
                                         code::unknownNewer};
    const auto holds = [](const std::vector<int>& codes, int wanted) {
        return std::find(codes.begin(), codes.end(), wanted) != codes.end();
    };
    for (int release = code::win32s; release <= code::unknownNewer + 1; ++release) {
        const EnvironmentPolicy policy = environmentPolicy(true, release, "Windows");
        EXPECT_EQ(policy.accepted, !holds(refused, release)) << release;
        const std::string shown =
            holds(refused, release)
                ? "This product is only supported on Windows 7 and Windows 8 operating systems."
            : holds(askedAbout, release) ? "This product has not been tested on Windows.\n\nWould "
                                           "you like to continue the installation?"
                                         : "";
        EXPECT_EQ(policy.message ? policy.message->text : "", shown) << release;
        EXPECT_EQ(policy.message && policy.message->buttons == MessageButtons::YesNo,
                  holds(askedAbout, release))
            << release;
    }
}
