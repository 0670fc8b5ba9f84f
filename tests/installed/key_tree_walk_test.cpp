// The walk through a registry tree, on what other programs may have left there.
#include "installed/key_tree_walk.h"

#include "tests/installed/described_tree.h"
#include "tests/rows.h"

using namespace std::string_literals;

namespace {

class KeyTreeWalk : public testing::Test {
  protected:
    bool walk(const std::string& key) {
        clearWalkError();
        records.clear();
        return walkKeyTree(machine.localMachine().get(), key, "HKEY_LOCAL_MACHINE\\", records,
                           extras);
    }

    DescribedMachine machine;
    RegistryKeys& keys = machine.registry.keys;
    std::vector<InstallationRecord> records;
    FieldMap extras;
};

TEST_F(KeyTreeWalk, TakesDataOfAnyTypeUpToTheirFirstZero) {
    constexpr std::uint32_t text = 1, binary = 3, texts = 7;
    const std::string longest(1024, 'x');
    setRecord(keys, "A");
    expectRows<std::tuple<std::uint32_t, std::string>, std::string>(
        {{{text, ""}, ""},
         {{text, "abc\0"s}, "abc"},
         {{text, "a\0b\0"s}, "a"},
         {{text, "abc"}, "abc"},
         {{binary, longest}, longest},
         {{binary, longest + 'x'}, "broken off"},
         {{texts, "a\0b\0\0"s}, "a"}},
        [&](std::uint32_t type, const std::string& data) {
            keys["A"]["Lard"] = {type, data};
            return walk("A") ? records.at(0).fields["Lard"] : "broken off";
        });
}

TEST_F(KeyTreeWalk, ReachesEveryLeaf) {
    std::string deep = "T\\D";
    for (int level = 0; level < 200; ++level) {
        deep += "\\L";
    }
    const std::string longName(255, '\xE9');
    keys["T\\B\\C"]["!"] = {3, std::string(1025, 'x')};  // a first: passed over
    for (const std::string& key : {"T"s, "T\\A"s, "T\\B"s, "T\\B\\C"s, deep, "T\\E"s,
                                   "T\\" + longName, "T\\F"s, "T\\G"s, "T\\H\\I"s}) {
        setRecord(keys, key);
    }
    setTexts(keys, "T\\A", {{longName, "long"}, {"", "default"}});
    setTexts(keys, "T\\E", {{std::string(1024, 'z'), ""}});  // a later one: not
    setTexts(keys, "T\\Incomplete", {{"Product Id", "0b"}});
    keys["T\\Empty"];
    machine.registry.failures["T\\F"].open = 5;
    machine.registry.failures["T\\G"].count = 5;
    machine.registry.failures["T\\H"].enumerate = 5;
    EXPECT_FALSE(walk("T\\Empty"));
    EXPECT_FALSE(walk(""));
    EXPECT_TRUE(walk("T\\"));
    std::string leaves;
    for (InstallationRecord& found : records) {
        leaves +=
            found.fields["Registry Key"].substr(19) + '|' + found.fields["Registry Subkey"] + '|';
    }
    EXPECT_EQ(leaves, "T\\A|A|T\\B\\C|C|" + deep + "|L|T\\" + longName + '|' + longName + '|');
    EXPECT_EQ(extras, (FieldMap{{"", "default"}, {longName, "long"}}));
}

TEST_F(KeyTreeWalk, TellsItsLastFailure) {
    setRecord(keys, "T\\A");
    setRecord(keys, "T\\B");
    machine.registry.lastError = 5;
    const std::tuple<std::string, const char*, KeyFailures, const char*> rows[] = {
        {"T", "T\\", {.open = 5}, "Could not open registry key \"HKEY_LOCAL_MACHINE\\T\\\""},
        {"T", "T", {.count = 5}, "Could not query key \"HKEY_LOCAL_MACHINE\\T\""},
        {"T", "T", {.enumerate = 5}, "Could not enumerate key \"HKEY_LOCAL_MACHINE\\T\""},
        {"T",
         "T",
         {.enumerate = 5, .fromIndex = 1},
         "Error enumerating key \"HKEY_LOCAL_MACHINE\\T\\A\""},
        {"T\\A", "T\\A", {.enumerate = 234, .fromIndex = 2}, "RegEnumValue failed with 5."},
    };
    for (const auto& [failing, walked, failures, told] : rows) {
        machine.registry.failures = {{failing, failures}};
        EXPECT_FALSE(walk(walked)) << told;
        EXPECT_STREQ(walkError(), told);
    }
    EXPECT_FALSE(walkKeyTree(nullptr, "T", "", records, extras));
}

}  // namespace
