#include "installed/installation_index.h"

#include "installed/key_tree_walk.h"
#include "tests/installed/described_tree.h"
#include "tests/rows.h"

const std::string maker = makerTree, older = olderMakerTree;

TEST(InstallationIndex, HoldsBothTreesOnce) {
    DescribedMachine machine;
    RegistryKeys& keys = machine.registry.keys;
    InstallationIndex index(machine);
    std::vector<std::size_t> matches;
    EXPECT_FALSE(index.load(true));
    setRecord(keys, older + "B");
    setTexts(keys, older + "B", {{"Installation Helper", "C:\\Old"}, {"Old User Data Key", "old"}});
    EXPECT_FALSE(index.find("", installation_selector::programFolder, matches));
    EXPECT_TRUE(index.records.empty()) << "nothing is read for an empty value";
    EXPECT_TRUE(index.find("halvick ANALYZER", installation_selector::programFolder, matches))
        << "an empty index is read first";
    EXPECT_EQ(matches, std::vector<std::size_t>{0});
    EXPECT_EQ(index.helperLocation, "") << "the older tree's";
    setRecord(keys, maker + "A");
    setTexts(keys, maker + "A", {{"Version", "not trusted"}});
    setTexts(keys, maker + "Common", {{"Installation Helper", "C:\\Helper"}});
    machine.files["C:\\Analyzer\\Executables\\Core\\qmx.exe"].version = "Version Build 12.4.1";
    EXPECT_TRUE(index.load(false));
    EXPECT_EQ(index.records.size(), 1u);
    EXPECT_TRUE(index.load(true));
    machine.files["C:\\Analyzer\\Executables\\Core\\qmx.exe"].version = "Version Build 12.4.2";
    std::vector<InstallationRecord> records(3);
    FieldMap extras{{"of an earlier", "tree"}};
    EXPECT_TRUE(
        index.readTree("SOFTWARE\\HVQ\\Tressle Analyzer\\", records, extras, MergeMode::Current));
    EXPECT_EQ(records.size(), 1u);
    EXPECT_FALSE(extras.contains("of an earlier"));
    ASSERT_EQ(index.records.size(), 2u) << "in whatever letters a key is written";
    EXPECT_STREQ(walkError(), "") << "of the empty machine";
    EXPECT_FALSE(index.records[0].legacy);
    EXPECT_TRUE(index.records[1].legacy);
    EXPECT_EQ(index.records[0].fields["Version"], "12.4.2") << "looked at anew";
    EXPECT_EQ(index.helperLocation, "C:\\Helper");
    EXPECT_EQ(index.field(1, "user data KEY"), "old") << "older releases had another name for it";
    EXPECT_EQ(index.field(0, "Product Id") + index.field(0, "Version") + index.field(2, "Lard"),
              "0b");
}

TEST(InstallationIndex, FindsFromTheLastToTheFirst) {
    DescribedMachine machine;
    InstallationIndex index(machine);
    index.records.resize(3, sampleRecord());
    index.records[0].fields["Path"] = "C:\\Old\\";
    index.records[1].fields["Path"] = "\\c:\\old";
    index.records[2].fields["Path"] = "C:\\Old\x95\\";
    index.records[0].fields["Product Id"] = "1k";
    index.records[1].fields["Product Name"] = "Name";
    index.records[2].fields["Temp Reference"] = "Other";
    using Positions = std::vector<std::size_t>;
    namespace by = installation_selector;
    CodePage page = asciiCodePage;
    page.lead[0x95] = true;  // the last byte of the third path is half a character
    useCodePage(page);
    expectRows<std::tuple<std::string, int>, Positions>(
        {{{"C:\\OLD\\\\", by::path}, {1, 0}},
         {{"C:\\Old\x95", by::path}, {}},
         {{"c:\\old\x95\\\\", by::path}, {2}},
         {{"1K", by::productId}, {0}},
         {{"0b", by::productId}, {2, 1}},
         {{"name", by::productName}, {1}},
         {{"HALVICK ANALYZER", by::programFolder}, {2, 1, 0}},
         {{"Halvick", by::programFolder}, {}},
         {{"1", 4}, {}},
         {{"other", by::temporaryReference}, {2}},
         {{"1", -1}, {}}},
        [&](const std::string& value, int selector) {
            Positions matches{99};
            const bool found = index.find(value, selector, matches);
            EXPECT_EQ(found, !matches.empty());
            return matches;
        });
    useCodePage(asciiCodePage);
}
