#include "installed/installation_index_win.h"

#include "installed/key_tree_walk_win.h"
#include "tests/installed/scratch_machine_win.h"

namespace {

TEST(InstallationIndex, HoldsBothTreesOnce) {
    const ScratchMachine machine;
    const std::string maker = "Software\\Halvick Test Equipment\\",
                      older = "Software\\HVQ\\Tressle Analyzer\\";
    InstallationIndex index;
    std::vector<std::size_t> matches;
    std::vector<InstallationRecord> records(3);
    FieldMap extras;
    EXPECT_FALSE(index.load(true));
    EXPECT_FALSE(index.find("", installation_selector::programFolder, matches));
    machine.setRecord(older + "B");
    EXPECT_TRUE(index.find("halvick ANALYZER", installation_selector::programFolder, matches));
    EXPECT_EQ(matches, std::vector<std::size_t>{0});
    machine.setRecord(maker + "A");
    machine.setText(maker + "A", "Version", "not trusted");
    machine.setText(maker + "Common", "Installation Helper", "C:\\Helper");
    machine.setText(maker + "Common", "Path", "C:\\Common");
    machine.setText(older + "B", "Old User Data Key", "old");
    EXPECT_TRUE(index.load(false));
    EXPECT_EQ(index.records.size(), 1u);
    EXPECT_TRUE(index.load(true));
    EXPECT_TRUE(
        index.readTree("SOFTWARE\\HVQ\\Tressle Analyzer\\", records, extras, MergeMode::Current));
    EXPECT_EQ(records.size(), 1u);
    ASSERT_EQ(index.records.size(), 2u);
    EXPECT_STREQ(walkError(), "") << "of the empty machine";
    EXPECT_FALSE(index.records[0].legacy);
    EXPECT_TRUE(index.records[1].legacy);
    EXPECT_EQ(index.records[0].fields["Version"] + index.helperLocation, "C:\\Helper");
    EXPECT_EQ(index.field(1, "User Data Key"), "old");
    EXPECT_EQ(index.field(2, "User Data Key"), "");
}

}  // namespace
