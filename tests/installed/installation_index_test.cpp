#include "installed/installation_index.h"

#include "installed/walk_error.h"
#include "tests/installed/recorded_installation.h"
#include "tests/installed/scratch_folder.h"

namespace {

const std::string makerKey = "Software\\Halvick Test Equipment\\";
const std::string olderKey = "Software\\HVQ\\Tressle Analyzer\\";

class Index : public testing::Test {
  protected:
    const std::string& version(std::size_t position) {
        EXPECT_EQ(index.records[position].fields["Version"],
                  index.records[position].executableVersion);
        return index.records[position].executableVersion;
    }

    ScratchMachine machine;
    InstallationIndex index;
    std::vector<std::size_t> matches;
};

TEST_F(Index, WithoutTreesIsEmpty) {
    EXPECT_FALSE(index.load(true));
    EXPECT_EQ(std::string(walkError()),
              "Could not open registry key \"HKEY_LOCAL_MACHINE\\" + olderKey + "\"");
    EXPECT_EQ(index.field(0, "Product Id"), "");
    EXPECT_FALSE(index.find("0b", 1, matches));
}

TEST_F(Index, LoadsBothTreesAnew) {
    recordInstallation(machine, makerKey + "A");
    machine.setText(makerKey + "Common", "Installation Helper", "C:\\Helper");
    recordInstallation(machine, olderKey + "B");
    machine.setText(olderKey + "B", "Old User Data Key", "old");
    EXPECT_TRUE(index.load(false));
    EXPECT_EQ(index.records.size(), 1u);
    EXPECT_TRUE(index.load(true));
    ASSERT_EQ(index.records.size(), 2u);
    EXPECT_FALSE(index.records[0].legacy);
    EXPECT_TRUE(index.records[1].legacy);
    EXPECT_EQ(index.helperLocation, "C:\\Helper");
    EXPECT_EQ(index.field(1, "User Data Key"), "old");
    EXPECT_EQ(index.field(2, "User Data Key"), "");

    SHDeleteKeyA(HKEY_LOCAL_MACHINE, makerKey.c_str());
    EXPECT_TRUE(index.load(true));
    EXPECT_EQ(index.records.size(), 1u);
    EXPECT_EQ(index.helperLocation, "");
}

TEST_F(Index, LoadsItselfForTheFirstQuestion) {
    recordInstallation(machine, olderKey + "B");
    EXPECT_FALSE(index.find("", installation_selector::programFolder, matches));
    EXPECT_TRUE(index.records.empty());
    EXPECT_TRUE(index.find("halvick ANALYZER", installation_selector::programFolder, matches));
    EXPECT_EQ(matches, std::vector<std::size_t>{0});
    EXPECT_EQ(InstallationIndex().field(0, "product id"), "0b");
}

TEST_F(Index, ReadsATreeTwiceWithoutDoublingIt) {
    recordInstallation(machine, "T\\A");
    std::vector<InstallationRecord> read(1);
    FieldMap extras{{"stale", ""}};
    EXPECT_TRUE(index.readTree("T\\", read, extras, MergeMode::Current));
    EXPECT_EQ(read.size(), 1u);
    EXPECT_TRUE(extras.empty());
    EXPECT_TRUE(index.readTree("t\\", read, extras, MergeMode::Legacy));
    EXPECT_EQ(index.records.size(), 1u);
    EXPECT_FALSE(index.records[0].legacy);
}

TEST_F(Index, TrustsOnlyTheExecutableForTheVersion) {
    const ScratchFolder folder;
    folder.addProgram("new\\Executables\\Core\\qmx.exe");
    folder.addProgram("old\\bin\\release\\qmx.exe");
    recordInstallation(machine, "T\\A");
    machine.setText("T\\A", "Installation Path", (folder.path / "new").string());
    machine.setText("T\\A", "Version", "99.0.0.0");
    recordInstallation(machine, "T\\B");
    machine.setText("T\\B", "Installation Path", "");
    machine.setText("T\\B", "Path", (folder.path / "old\\").string());
    recordInstallation(machine, "T\\C");
    machine.setText("T\\C", "Version", "99.0.0.0");
    std::vector<InstallationRecord> read;
    FieldMap extras;
    EXPECT_TRUE(index.readTree("T\\", read, extras, MergeMode::Current));
    ASSERT_EQ(index.records.size(), 3u);
    EXPECT_EQ(version(0), "12.4.1");
    EXPECT_EQ(version(1), "12.4.1");
    EXPECT_EQ(version(2), "");
}

TEST_F(Index, SurvivesTruncatedExecutables) {
    const ScratchFolder folder;
    const auto program = folder.addProgram("Executables\\Core\\qmx.exe");
    const auto size = std::filesystem::file_size(program);
    InstallationRecord record;
    record.fields["Installation Path"] = folder.path.string();
    for (unsigned part = 63; part > 0; --part) {
        std::filesystem::resize_file(program, size / 64 * part);
        std::string version = "stale";
        InstallationIndex::readExecutableVersion(record, version);
        EXPECT_TRUE(version.empty() || version == "12.4.1") << part << ": " << version;
    }
}

}  // namespace
