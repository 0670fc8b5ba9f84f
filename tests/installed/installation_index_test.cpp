#include "installed/installation_index.h"

#include "platform/ansi_text.h"
#include "tests/installed/sample_record.h"
#include "tests/rows.h"

TEST(InstallationIndex, TakesOneRecordPerRegistryKey) {
    std::vector<InstallationRecord> installations, found(4, sampleRecord());
    const char* const keys[] = {"HKLM\\A", "hklm\\a", "HKLM\\B", "HKLM\\b"};
    for (std::size_t index = 0; index < found.size(); ++index) {
        found[index].fields["Registry Key"] = keys[index];
    }
    mergeInstallations(installations, {found[0]});
    mergeInstallations(installations, found);
    ASSERT_EQ(installations.size(), 2u);
    EXPECT_EQ(fieldText(installations[0], "Registry Key"), "HKLM\\A");
    EXPECT_EQ(fieldText(installations[1], "Registry Key"), "HKLM\\B");
}

TEST(InstallationIndex, AnswersForSomeFieldsOnly) {
    InstallationRecord record;
    FieldMap extras;
    std::string answered;
    storeValue(record, extras, oldUserDataKey, "old");
    for (auto& [name, text] : record.fields) {
        text = name;
        EXPECT_EQ(installationField(record, name), installationField(record, lowerCase(name)));
        answered += installationField(record, name) + '|';
    }
    EXPECT_EQ(answered,
              "|Lard||Path||Product Id|Product Name|Program Folder|||Seinda|Temp Reference|"
              "User Data Key||");
    // Older releases kept the key under another name.
    record.legacy = true;
    EXPECT_EQ(installationField(record, "user data key"), "Old User Data Key");
    EXPECT_EQ(installationField(record, ""), "");
}

TEST(InstallationIndex, FindsFromTheLastToTheFirst) {
    std::vector<InstallationRecord> installations(3, sampleRecord());
    installations[0].fields["Path"] = "C:\\Old\\";
    installations[1].fields["Path"] = "\\c:\\old";
    installations[2].fields["Path"] = "C:\\Old\x95\\";
    installations[0].fields["Product Id"] = "1k";
    installations[1].fields["Product Name"] = "Name";
    installations[2].fields["Temp Reference"] = "Other";
    // In a double-byte page the last byte of the third path is half a character.
    using Positions = std::vector<std::size_t>;
    expectRows<std::tuple<std::string, int, bool>, Positions>(
        {{{"C:\\OLD\\\\", 0, false}, {1, 0}},
         {{"C:\\", 0, false}, {}},
         {{"C:\\Old\x95", 0, true}, {}},
         {{"c:\\old\x95\\\\", 0, true}, Positions{2}},
         {{"1K", 1, false}, Positions{0}},
         {{"0b", 1, false}, {2, 1}},
         {{"name", 2, false}, Positions{1}},
         {{"HALVICK ANALYZER", 3, false}, {2, 1, 0}},
         {{"Halvick", 3, false}, {}},
         {{"", 3, false}, {}},
         {{"1", 4, false}, {}},
         {{"other", 5, false}, Positions{2}},
         {{"1", 6, false}, {}},
         {{"1", -1, false}, {}}},
        [&](const std::string& value, int selector, bool twoByte) {
            CodePage page = asciiCodePage;
            page.lead[0x95] = twoByte;
            useCodePage(page);
            Positions matches{99};
            const bool found = findInstallations(installations, value, selector, matches);
            useCodePage(asciiCodePage);
            EXPECT_EQ(found, !matches.empty());
            return matches;
        });
}
