#include <gtest/gtest.h>

#include "drivers/driver_installation.h"

using namespace std::string_literals;

TEST(DriverExtraction, PackagesForTheSystem) {
    struct {
        DriverPackage package;
        int code;
        bool applies;
    } const rows[] = {
        {{true, {9, 23}, "a", "t"}, 9, true},   {{false, {9, 23}, "a", "t"}, 23, true},
        {{true, {9, 23}, "a", "t"}, 10, false}, {{true, {}, "a", "t"}, 9, false},
        {{true, {9}, "", "t"}, 9, false},       {{true, {9}, "a", ""}, 9, false},
        {{true, {9, 24}, "a", "t"}, 24, false}, {{true, {9, -1}, "a", "t"}, -1, false},
        {{true, {0, 9}, "a", "t"}, 0, true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(appliesTo(row.package, row.code), row.applies) << row.code;
    }
}

TEST(DriverExtraction, FolderAndCommand) {
    struct {
        const char *target, *programFiles, *folder;
    } const rows[] = {
        {"#PROGRAM_FILES#\\D\\", "C:\\Program Files (x86)", "C:\\Program Files (x86)\\D"},
        {"#program_Files#\\D\\\\", "C:\\P", "C:\\P\\D\\"},
        {"#PROGRAM_FILES#\\#PROGRAM_FILES#", "P", "P\\P"},
        {"#PROGRAM_FILES#\\D", "", "\\D"},
        {"#PROGRAM_FILES#", "", ""},
        {"#PROGRAM_FILES\\", "P", "#PROGRAM_FILES"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(extractionFolder(row.target, row.programFiles), row.folder);
    }
    const std::string key = "0123456789ABCDEFnot the key";
    ExtractionCommand command = extractionCommand("C:\\my media\\", "a.fzx", key.data(), "C:\\P");
    EXPECT_EQ(command.tool, "C:\\my media\\flatten.exe");
    EXPECT_EQ(command.report, "C:\\my media\\report.txt");
    EXPECT_EQ(command.arguments,
              "-fzx \"C:\\my media\\a.fzx\" -fzxkey 0123456789ABCDEF "
              "-rep \"C:\\my media\\report.txt\" -exdir \"C:\\P\"");
    const std::string longFolder(5000, 'f');
    command = extractionCommand(longFolder, "a", key.data(), longFolder);
    EXPECT_EQ(command.tool.size(), 260u);
    EXPECT_TRUE(command.arguments.ends_with("\" -exdir \"" + longFolder + '"'));
}

TEST(DriverExtraction, ReportedInstaller) {
    const std::string name = driverInstallerName(true);
    EXPECT_EQ(name, "dpinst_64.exe");
    EXPECT_STREQ(driverInstallerName(false), "dpinst_32.exe");
    const std::string large(1'000'000, 'd');
    struct {
        std::string report;
        std::optional<std::string> path;
    } const rows[] = {
        {"extracted \"sub\\dpinst_64.exe\"\r\n", "D\\sub\\dpinst_64.exe"},
        {"\"dpinst_64.exe", "D\\dpinst_64.exe"},
        {"\"a\" \"x32\\dpinst_32.exe\" \"x64\\dpinst_64.exe\"", "D\\x64\\dpinst_64.exe"},
        {"\"one\\dpinst_64.exe\" \"two\\dpinst_64.exe\"", "D\\one\\dpinst_64.exe"},
        // The path is taken as it stands.
        {"\"..\\..\\dpinst_64.exe\"", "D\\..\\..\\dpinst_64.exe"},
        {"\"a\\dpinst_64.exe.bak\"", "D\\a\\dpinst_64.exe"},
        {"\0\"a\\dpinst_64.exe\""s, "D\\a\\dpinst_64.exe"},
        {"\"a\0\\dpinst_64.exe\""s, std::nullopt},
        {"", std::nullopt},
        {"dpinst_64.exe\"", std::nullopt},
        {"sub\\dpinst_64.exe", std::nullopt},
        // Only the first occurrence counts.
        {"dpinst_64.exe \"sub\\dpinst_64.exe\"", std::nullopt},
        {"\"sub\\DPINST_64.EXE\"", std::nullopt},
        {'"' + large + name, "D\\" + large.substr(0, 258)},
        {large + "\"x\\" + name, "D\\x\\dpinst_64.exe"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(reportedInstaller(row.report, "D", name), row.path) << row.report.substr(0, 50);
    }
}
