// The walk through a registry tree, on what other programs may have left there.
#include "installed/key_tree_walk_win.h"

#include "tests/installed/scratch_machine_win.h"
#include "tests/rows.h"

using namespace std::string_literals;

namespace {

class KeyTreeWalk : public testing::Test {
  protected:
    bool walk(const std::string& key) {
        clearWalkError();
        records.clear();
        return walkKeyTree(HKEY_LOCAL_MACHINE, key, "HKEY_LOCAL_MACHINE\\", records, extras);
    }

    ScratchMachine machine;
    std::vector<InstallationRecord> records;
    FieldMap extras;
};

TEST_F(KeyTreeWalk, TakesDataOfAnyTypeUpToTheirFirstZero) {
    const std::string longest(1024, 'x');
    expectRows<std::tuple<DWORD, std::string>, std::string>(
        {{{REG_SZ, ""}, ""},
         {{REG_SZ, "abc\0"s}, "abc"},
         {{REG_SZ, "a\0b\0"s}, "a"},
         {{REG_SZ, "\xE9\xFF\0"s}, "\xE9\xFF"},
         {{REG_SZ, "abc"}, "abc"},
         {{REG_BINARY, ""}, ""},
         {{REG_BINARY, longest}, longest},
         {{REG_BINARY, longest + 'x'}, "broken off"},
         {{REG_SZ, std::string(65535, 'x') + '\0'}, "broken off"},
         {{REG_DWORD, "ABCD"}, "ABCD"},
         {{REG_DWORD, "A\0\0\0"s}, "A"},
         {{REG_MULTI_SZ, "a\0b\0\0"s}, "a"}},
        [this](DWORD type, const std::string& data) {
            machine.setRecord("A");
            machine.setText("A", "!", std::string(1023, '#'));  // a long one before it
            machine.setValue("A", "Lard", type, data);
            return walk("A") ? records.at(0).fields["Lard"] : "broken off";
        });
}

TEST_F(KeyTreeWalk, ReachesEveryLeaf) {
    EXPECT_FALSE(walk("T\\"));
    EXPECT_STREQ(walkError(), "Could not open registry key \"HKEY_LOCAL_MACHINE\\T\\\"");
    const std::string longName(255, '\xE9');
    std::string deep = "T\\D";
    for (int level = 0; level < 200; ++level) {
        deep += "\\L";
    }
    for (const std::string& key :
         {"T"s, "T\\A"s, "T\\B"s, "T\\B\\C"s, deep, "T\\E"s, "T\\" + longName}) {
        machine.setRecord(key);
    }
    machine.setText("T\\A", longName, "long");
    machine.setText("T\\A", "", "default");
    machine.setValue("T\\B\\C", "!", REG_BINARY, std::string(1025, 'x'));  // a first: passed over
    machine.setText("T\\E", std::string(1024, 'z'), "");                   // a later one: not
    machine.setText("T\\Incomplete", "Product Id", "0b");
    machine.createKey("T\\Empty");
    EXPECT_FALSE(walk("T\\Empty"));
    EXPECT_FALSE(walk(""));
    SetLastError(5);
    EXPECT_TRUE(walk("T\\"));
    EXPECT_STREQ(walkError(), "RegEnumValue failed with 5.");
    std::string keys;
    for (InstallationRecord& found : records) {
        keys +=
            found.fields["Registry Key"].substr(19) + '|' + found.fields["Registry Subkey"] + '|';
    }
    EXPECT_EQ(keys, "T\\A|A|T\\B\\C|C|" + deep + "|L|T\\" + longName + '|' + longName + '|');
    EXPECT_EQ(extras, (FieldMap{{"", "default"}, {longName, "long"}}));
}

}  // namespace
