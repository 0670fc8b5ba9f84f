#include "app/environment.h"

#include <gtest/gtest.h>

#include "platform/operating_system.h"

// In the order of the codes, from -2: an Error, Refused, asked about, passed.
TEST(Environment, HasAnAnswerForEveryOperatingSystem) {
    std::string answers;
    for (int code = -2; code <= 25; ++code) {
        const EnvironmentPolicy policy = environmentPolicy(true, code, "");
        const Message shown = policy.message.value_or(Message{});
        const bool asks = shown.buttons == MessageButtons::YesNo;
        answers += shown.text.empty()                 ? '.'
                   : shown.icon == MessageIcon::Error ? 'E'
                   : asks                             ? '?'
                                                      : 'R';
        EXPECT_EQ(policy.accepted, asks || !policy.message) << code;
    }
    EXPECT_EQ(answers, "EERRRRRRRR?..???.??.......?.");
    EXPECT_TRUE(environmentPolicy(true, -2, "").message->text.starts_with("Memory"));
    const EnvironmentPolicy user = environmentPolicy(false, operating_system_code::windows7, "");
    EXPECT_FALSE(user.accepted);
    EXPECT_EQ(user.message->icon, MessageIcon::Warning);
    EXPECT_EQ(user.message->buttons, MessageButtons::Ok);
}
