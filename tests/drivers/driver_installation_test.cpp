#include "drivers/driver_installation.h"

#include "desk/computer/described_machine.h"
#include "tests/rows.h"

using namespace std::string_literals;

TEST(DriverInstallation, TakesWholePackagesForTheSystem) {
    using namespace operating_system_code;
    const DriverPackage whole{true, {windowsXp, unknownNewer, notRecognised}, "archive", "folder"};
    EXPECT_TRUE(appliesTo(whole, windowsXp));
    for (const int release : {windowsXpX64, unknownNewer, notRecognised}) {
        EXPECT_FALSE(appliesTo(whole, release)) << release;
    }
    DriverPackage withoutArchive = whole, withoutFolder = whole;
    withoutArchive.archive = withoutFolder.targetFolder = "";
    EXPECT_FALSE(appliesTo(withoutArchive, windowsXp) || appliesTo(withoutFolder, windowsXp));
}

TEST(DriverInstallation, UnpacksIntoTheFolderWithTheKey) {
    expectRows<std::tuple<std::string, std::string>, std::string>(
        {{{"#PROGRAM_FILES#\\D\\", "C:\\Program Files (x86)"}, "C:\\Program Files (x86)\\D"},
         {{"#program_Files#\\D\\\\", "C:\\P"}, "C:\\P\\D\\"},
         {{"#PROGRAM_FILES#\\#PROGRAM_FILES#", "P"}, "P\\P"},
         {{"#PROGRAM_FILES#\\D", ""}, "\\D"},
         {{"#PROGRAM_FILES#", ""}, ""},
         {{"#PROGRAM_FILES\\", "P"}, "#PROGRAM_FILES"}},
        extractionFolder);
    const std::string key = "0123456789ABCDEFnot the key", longFolder(5000, 'f');
    const ExtractionCommand command = extractionCommand(longFolder, "a", key.data(), longFolder);
    EXPECT_NE(command.arguments.find(" -fzxkey 0123456789ABCDEF -rep "), std::string::npos);
    EXPECT_EQ(command.tool.size(), 260u);
    EXPECT_TRUE(command.arguments.ends_with("\" -exdir \"" + longFolder + '"'));
}

TEST(DriverInstallation, RunsTheInstallerThatTheReportNames) {
    const std::string name = "dpinst_64.exe", large(1'000'000, 'd');
    expectRows<std::string, std::string>(
        {{"extracted \"sub\\dpinst_64.exe\"\r\n", "D\\sub\\dpinst_64.exe"},
         {"\"dpinst_64.exe", "D\\dpinst_64.exe"},
         {"\"a\" \"x32\\dpinst_32.exe\" \"x64\\dpinst_64.exe\"", "D\\x64\\dpinst_64.exe"},
         // The path is taken as it stands.
         {"\"..\\..\\dpinst_64.exe\"", "D\\..\\..\\dpinst_64.exe"},
         {"\"a\\dpinst_64.exe.bak\"", "D\\a\\dpinst_64.exe"},
         {"\0\"a\\dpinst_64.exe\""s, "D\\a\\dpinst_64.exe"},
         {"\"a\0\\dpinst_64.exe\""s, "none"},
         {"", "none"},
         {"dpinst_64.exe\"", "none"},
         // Only the first occurrence counts.
         {"dpinst_64.exe \"sub\\dpinst_64.exe\"", "none"},
         {"\"sub\\DPINST_64.EXE\"", "none"},
         {'"' + large + name, "D\\" + large.substr(0, 258)}},
        [&name](const std::string& report) {
            return reportedInstaller(report, "D", name).value_or("none");
        });
}

TEST(DriverInstallation, NeedsAKeyOnceThereIsAPackage) {
    DescribedMachine machine;
    std::string error = "earlier";
    EXPECT_TRUE(installDrivers(machine, "C:\\", {}, nullptr, error));
    EXPECT_EQ(error, "");
    EXPECT_FALSE(installDrivers(machine, "C:\\", {{}}, nullptr, error));
    EXPECT_EQ(error, "No data key specified.");
}
