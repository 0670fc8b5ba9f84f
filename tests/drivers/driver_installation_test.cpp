#include "drivers/driver_installation.h"

#include <cstdlib>

#include "platform/operating_system_query.h"
#include "tests/stand_ins.h"

namespace {

constexpr char key[] = "0123456789ABCDEF";

class DriverInstallation : public testing::Test {
  protected:
    std::string started(const std::string& file, const std::string& parameters = "") const {
        return "start \"" + standIns.path(file) + '"' +
               (parameters.empty() ? "" : ' ' + parameters) + "\nend\n";
    }
    std::string extraction(const std::string& archive, const std::string& folder) const {
        return started("flatten.exe", "-fzx \"" + standIns.path(archive) + "\" -fzxkey " + key +
                                          " -rep \"" + standIns.path("report.txt") +
                                          "\" -exdir \"" + folder + '"');
    }
    bool install(const std::vector<DriverPackage>& packages) {
        standIns.forgetRecords();
        return installDrivers(standIns.folder, packages, key, error);
    }

    StandIns standIns;
    const int code = operatingSystemCode();
    std::string error = "earlier";
};

TEST_F(DriverInstallation, NeedsAKeyOnceThereIsAPackage) {
    standIns.layOut("flatten.exe");
    EXPECT_TRUE(installDrivers(standIns.folder, {}, nullptr, error));
    EXPECT_EQ(error, "");
    EXPECT_FALSE(installDrivers(standIns.folder, {{true, {code + 1}, "a", "t"}}, nullptr, error));
    EXPECT_EQ(error, "No data key specified.");
    EXPECT_EQ(standIns.records(), "");
}

TEST_F(DriverInstallation, UnpacksAndInstallsOneAfterAnother) {
    const std::string installer =
        std::string("x\\") + (isWow64() ? "dpinst_64.exe" : "dpinst_32.exe");
    standIns.layOut(installer, "wait\t50");
    standIns.layOut("flatten.exe", "write\t" + standIns.path("report.txt") +
                                       "\t\"x\\dpinst_32.exe\" \"x\\dpinst_64.exe\"");
    const std::string programFiles = std::getenv("ProgramFiles");
    EXPECT_TRUE(install({{true, {code + 1}, "other.fzx", standIns.folder},
                         {false, {code}, "one.fzx", standIns.folder},
                         {true, {code}, "two.fzx", standIns.folder},
                         {true, {code}, "three.fzx", "#program_files#\\missing\\"}}));
    EXPECT_EQ(error, "");
    const std::string folder = standIns.folder.substr(0, standIns.folder.size() - 1);
    EXPECT_EQ(standIns.records(), extraction("one.fzx", folder) + extraction("two.fzx", folder) +
                                      started(installer) +
                                      extraction("three.fzx", programFiles + "\\missing"));
}

TEST_F(DriverInstallation, PassesOverAMissingReport) {
    standIns.layOut("flatten.exe");
    EXPECT_TRUE(install({{true, {code}, "a.fzx", "C:\\t"}}));
    EXPECT_EQ(standIns.records(), extraction("a.fzx", "C:\\t"));
    EXPECT_EQ(error, "");
}

}  // namespace
