#include <gtest/gtest.h>

#include "installed/installation_record.h"

TEST(AnalyserVersion, LooksInBothPlacesForWhatFollowsTheWords) {
    InstallationRecord record;
    record.fields["Installation Path"] = "C:\\New";
    record.fields["Path"] = "C:\\Old\\";
    EXPECT_EQ(analyserPaths(record)[0], "C:\\New\\Executables\\Core\\qmx.exe");
    EXPECT_EQ(analyserPaths(record)[1], "C:\\Old\\bin\\release\\qmx.exe");
    record.fields["Path"] = std::string(1023, 'x');
    EXPECT_EQ(analyserPaths(record)[1].size(), 260u);
    EXPECT_EQ(versionPart("Build 12.4.1"), "12.4.1");
    EXPECT_EQ(versionPart("Version 7, 1, 2.0"), "2.0");
    EXPECT_EQ(versionPart("12.4.1"), "12.4.1");
    EXPECT_EQ(versionPart("12.4b"), "");
    EXPECT_EQ(versionPart(""), "");
}
