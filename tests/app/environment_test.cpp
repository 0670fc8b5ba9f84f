#include "app/environment.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/operating_system.h"

using namespace operating_system_code;

// Every other release passes without a word.
TEST(Environment, HasAnAnswerForEveryOperatingSystem) {
    const std::set<int> askedAbout = {windows2000, server2003,   homeServer,  server2003R2,
                                      server2008,  server2008R2, unknownNewer};
    for (int release = win32s; release <= unknownNewer + 1; ++release) {
        const bool refused = release <= windowsNt4, asks = askedAbout.contains(release);
        const EnvironmentPolicy policy = environmentPolicy(release, "Windows");
        EXPECT_EQ(policy.accepted, !refused) << release;
        EXPECT_EQ(
            policy.message ? policy.message->text : "",
            refused ? "This product is only supported on Windows 7 and Windows 8 operating systems."
            : asks  ? "This product has not been tested on Windows.\n\nWould you like to continue "
                      "the installation?"
                    : "")
            << release;
        EXPECT_EQ(policy.message && policy.message->buttons == MessageButtons::YesNo, asks);
    }
}
