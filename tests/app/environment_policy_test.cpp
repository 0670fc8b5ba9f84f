#include <gtest/gtest.h>

#include "app/environment.h"

TEST(EnvironmentPolicy, EveryOperatingSystem) {
    // In the order of the codes, from -2: no Memory, Invalid, Refused, Asked about, passed.
    int code = -2;
    for (const char answer : std::string_view("MIRRRRRRRRA..AAA.AA.......A")) {
        const OperatingSystemPolicy policy = operatingSystemPolicy(code, "Windows Z ");
        EXPECT_EQ(policy.accepted, answer == 'A' || answer == '.') << code;
        ASSERT_EQ(policy.message.has_value(), answer != '.') << code;
        if (policy.message) {
            EXPECT_EQ(policy.message->text,
                      answer == 'M' ? "Memory allocation failure during operating system detection."
                      : answer == 'I' ? "Invalid operating system detected."
                      : answer == 'R' ? "This product is only supported on Windows 7 and Windows 8 "
                                        "operating systems."
                                      : "This product has not been tested on Windows Z .\n\nWould "
                                        "you like to continue the installation?");
            EXPECT_EQ(policy.message->icon, code < 0 ? MessageIcon::Error : MessageIcon::Warning);
            EXPECT_EQ(policy.message->buttons,
                      answer == 'A' ? MessageButtons::YesNo : MessageButtons::Ok);
        }
        ++code;
    }
    EXPECT_EQ(administratorRequiredMessage().text,
              "You must be logged in as the Administrator, or be a member of the Administrator "
              "Group in order to install this product.\n\nPlease log in as an Administrator and "
              "retry this installation.\n\nYou do not need to be an Administrator to run the "
              "product.");
}
