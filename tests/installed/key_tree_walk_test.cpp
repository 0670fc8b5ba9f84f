#include "installed/key_tree_walk.h"

#include <optional>

#include "installed/walk_error.h"
#include "tests/installed/recorded_installation.h"

namespace {

class KeyTreeWalk : public testing::Test {
  protected:
    bool walk(const std::string& subkey = "T\\") {
        setWalkError("");
        return walkKeyTree(HKEY_LOCAL_MACHINE, subkey, "HKEY_LOCAL_MACHINE\\", records, extras);
    }

    ScratchMachine machine;
    std::vector<InstallationRecord> records;
    FieldMap extras;
};

TEST_F(KeyTreeWalk, NamesTheMissingKeyInFull) {
    EXPECT_FALSE(walk("Software\\None\\"));
    EXPECT_STREQ(walkError(),
                 "Could not open registry key \"HKEY_LOCAL_MACHINE\\Software\\None\\\"");
    EXPECT_FALSE(walk(""));
    EXPECT_FALSE(walkKeyTree(nullptr, "T", "", records, extras));
    EXPECT_STREQ(walkError(), "");
}

TEST_F(KeyTreeWalk, TakesLeavesOnly) {
    recordInstallation(machine, "T");
    recordInstallation(machine, "T\\A");
    recordInstallation(machine, "T\\B\\C");
    recordInstallation(machine, "T\\B");
    machine.setText("T\\Incomplete", "Product Id", "0b");
    machine.createKey("T\\Empty");
    EXPECT_TRUE(walk());
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].fields["Registry Key"], "HKEY_LOCAL_MACHINE\\T\\A");
    EXPECT_EQ(records[0].fields["Registry Subkey"], "A");
    EXPECT_EQ(records[0].fields["Installation Path"], "C:\\Analyzer");
    EXPECT_EQ(records[1].fields["Registry Key"], "HKEY_LOCAL_MACHINE\\T\\B\\C");
    EXPECT_STREQ(walkError(), "");
}

TEST_F(KeyTreeWalk, TellsLeavesWithoutValuesFromIncompleteOnes) {
    machine.createKey("Empty");
    machine.setText("Incomplete", "Product Id", "0b");
    EXPECT_FALSE(walk("Empty"));
    EXPECT_TRUE(walk("Incomplete"));
    EXPECT_TRUE(records.empty());
}

TEST_F(KeyTreeWalk, ReadsADeepTree) {
    std::string key = "T";
    for (int level = 0; level < 200; ++level) {
        key += "\\L";
        machine.createKey(key);
    }
    recordInstallation(machine, key);
    EXPECT_TRUE(walk());
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].fields["Registry Key"], "HKEY_LOCAL_MACHINE\\" + key);
}

TEST_F(KeyTreeWalk, ReadsLongAndForeignNames) {
    const std::string subkey(255, '\xE9');
    recordInstallation(machine, "T\\" + subkey);
    machine.setText("T\\" + subkey, std::string(255, 'n'), "long");
    machine.setText("T\\" + subkey, "", "default");
    EXPECT_TRUE(walk());
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].fields["Registry Subkey"], subkey);
    EXPECT_EQ(extras, (FieldMap{{"", "default"}, {std::string(255, 'n'), "long"}}));
}

TEST_F(KeyTreeWalk, LosesAFirstValueThatIsTooLarge) {
    // First both where values come in the order of their writing and where they are sorted.
    machine.setValue("T\\A", "!", REG_BINARY, std::string(1025, 'x'));
    recordInstallation(machine, "T\\A");
    EXPECT_TRUE(walk());
    EXPECT_EQ(records.size(), 1u);
    EXPECT_TRUE(extras.empty());
    EXPECT_STREQ(walkError(), "");
}

TEST_F(KeyTreeWalk, BreaksOffALeafWhoseLaterNameIsTooLong) {
    recordInstallation(machine, "T\\A");
    machine.setText("T\\A", std::string(1024, 'z'), "");
    recordInstallation(machine, "T\\B");
    SetLastError(5);
    EXPECT_TRUE(walk());
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].fields["Registry Subkey"], "B");
    EXPECT_STREQ(walkError(), "RegEnumValue failed with 5.");
}

struct DataCase {
    const char* description;
    DWORD type;
    std::string data;
    std::optional<std::string> text;  ///< none: the leaf is broken off
};

class LeafData : public KeyTreeWalk, public testing::WithParamInterface<DataCase> {};

TEST_P(LeafData, IsTextUpToItsFirstZero) {
    const DataCase& value = GetParam();
    machine.setText("A", "!", std::string(1023, '#'));  // a long one before it
    machine.setValue("A", "Lard", value.type, value.data);
    recordInstallation(machine, "A");
    EXPECT_EQ(walk("A"), value.text.has_value());
    ASSERT_EQ(records.size(), value.text.has_value() ? 1u : 0u);
    if (value.text) {
        EXPECT_EQ(records[0].fields["Lard"], *value.text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, LeafData,
    testing::Values(DataCase{"Empty", REG_SZ, "", ""},
                    DataCase{"Number", REG_DWORD, "ABCD", "ABCD"},
                    DataCase{"SmallNumber", REG_DWORD, std::string("A\0\0\0", 4), "A"},
                    DataCase{"List", REG_MULTI_SZ, std::string("a\0b\0\0", 5), "a"},
                    DataCase{"Unterminated", REG_SZ, "abc", "abc"},
                    DataCase{"HighBytes", REG_SZ, std::string("\x80\xFF\0", 3), "\x80\xFF"},
                    DataCase{"Fits", REG_SZ, std::string(1023, 'x') + '\0', std::string(1023, 'x')},
                    DataCase{"FillsTheBuffer", REG_BINARY, std::string(1024, 'x'),
                             std::string(1024, 'x')},
                    DataCase{"OneTooLong", REG_BINARY, std::string(1025, 'x'), std::nullopt},
                    DataCase{"FarTooLong", REG_SZ, std::string(65535, 'x') + '\0', std::nullopt}),
    [](const auto& info) { return std::string(info.param.description); });

}  // namespace
