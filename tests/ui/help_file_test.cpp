#include <gtest/gtest.h>

#include "ui/html_help.h"

TEST(HelpFile, TakesTheProgramsNameAndFolder) {
    EXPECT_EQ(helpFilePath("D:\\media\\Install.exe"), "D:\\media\\Install.chm");
    EXPECT_EQ(helpFilePath("D:\\v16.4\\Install"), "D:\\v16.4\\Install.chm");
    EXPECT_EQ(helpFilePath("a.b.exe"), "a.b.chm");
    EXPECT_EQ(helpFilePath(""), ".chm");
}
