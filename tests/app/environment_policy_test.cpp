#include "app/environment_policy.h"

#include <gtest/gtest.h>

namespace {

enum class Answer { Pass, Ask, Refuse };

TEST(EnvironmentPolicy, EveryOperatingSystem) {
    using enum Answer;
    // In the order of the codes, from 0.
    const Answer answers[] = {Refuse, Refuse, Refuse, Refuse, Refuse, Refuse, Refuse, Refuse, Ask,
                              Pass,   Pass,   Ask,    Ask,    Ask,    Pass,   Ask,    Ask,    Pass,
                              Pass,   Pass,   Pass,   Pass,   Pass,   Pass,   Ask};
    int code = 0;
    for (const Answer answer : answers) {
        const OperatingSystemPolicy policy = operatingSystemPolicy(code, "Windows Z ");
        EXPECT_EQ(policy.accepted, answer != Refuse) << code;
        ASSERT_EQ(policy.message.has_value(), answer != Pass) << code;
        if (answer != Pass) {
            EXPECT_EQ(policy.message->text,
                      answer == Ask ? "This product has not been tested on Windows Z .\n\nWould "
                                      "you like to continue the installation?"
                                    : "This product is only supported on Windows 7 and Windows 8 "
                                      "operating systems.")
                << code;
            EXPECT_EQ(policy.message->icon, MessageIcon::Warning) << code;
            EXPECT_EQ(policy.message->buttons,
                      answer == Ask ? MessageButtons::YesNo : MessageButtons::Ok)
                << code;
        }
        ++code;
    }
}

TEST(EnvironmentPolicy, FailedIdentificationEndsTheRun) {
    struct {
        int code;
        const char* text;
    } const cases[] = {
        {-2, "Memory allocation failure during operating system detection."},
        {-1, "Invalid operating system detected."},
    };
    for (const auto& row : cases) {
        const OperatingSystemPolicy policy = operatingSystemPolicy(row.code, "");
        EXPECT_FALSE(policy.accepted);
        ASSERT_TRUE(policy.message);
        EXPECT_EQ(policy.message->text, row.text);
        EXPECT_EQ(policy.message->icon, MessageIcon::Error);
        EXPECT_EQ(policy.message->buttons, MessageButtons::Ok);
    }
}

TEST(EnvironmentPolicy, AdministratorMessage) {
    EXPECT_EQ(administratorRequiredMessage().text,
              "You must be logged in as the Administrator, or be a member of the Administrator "
              "Group in order to install this product.\n\nPlease log in as an Administrator and "
              "retry this installation.\n\nYou do not need to be an Administrator to run the "
              "product.");
}

}  // namespace
