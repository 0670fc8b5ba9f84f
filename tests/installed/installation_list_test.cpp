#include <gtest/gtest.h>

#include "installed/installation_index.h"
#include "platform/ansi_text.h"
#include "tests/installed/sample_record.h"

TEST(InstallationList, TakesOneRecordPerRegistryKey) {
    std::vector<InstallationRecord> installations, found;
    for (const char* const key : {"HKLM\\A", "hklm\\a", "HKLM\\B", "HKLM\\b"}) {
        found.push_back(sampleRecord());
        found.back().fields["Registry Key"] = key;
    }
    mergeInstallations(installations, {found[0]});
    mergeInstallations(installations, found);
    ASSERT_EQ(installations.size(), 2u);
    EXPECT_EQ(fieldText(installations[0], "Registry Key"), "HKLM\\A");
    EXPECT_EQ(fieldText(installations[1], "Registry Key"), "HKLM\\B");
}

TEST(InstallationList, AnswersForSomeFieldsOnly) {
    InstallationRecord record;
    for (auto& [name, text] : record.fields) {
        text = name;
    }
    for (const char* name : {"Path", "Product Id", "Product Name", "Program Folder",
                             "Temp Reference", "Lard", "User Data Key", "Seinda"}) {
        EXPECT_EQ(installationField(record, name), name);
        EXPECT_EQ(installationField(record, lowerCase(name)), name);
    }
    for (const char* name :
         {"Version", "Registry Key", "Installation Path", "", "Old User Data Key"}) {
        EXPECT_EQ(installationField(record, name), "") << name;
    }
    // Older releases kept the key under another name.
    FieldMap extras;
    record.legacy = true;
    storeValue(record, extras, "Old User Data Key", "old");
    EXPECT_EQ(installationField(record, "user data key"), "old");
}

TEST(InstallationList, FindsFromTheLastToTheFirst) {
    std::vector<InstallationRecord> installations(3, sampleRecord());
    installations[0].fields["Path"] = "C:\\Old\\";
    installations[1].fields["Path"] = "\\c:\\old";
    installations[2].fields["Path"] = "C:\\Old\x95\\";
    installations[0].fields["Product Id"] = "1k";
    installations[1].fields["Product Name"] = "Name";
    installations[2].fields["Temp Reference"] = "Other";
    struct {
        const char* value;
        int selector;
        std::vector<std::size_t> matches;
        bool twoByte = false;
    } const searches[] = {
        {"C:\\OLD\\\\", 0, {1, 0}},
        {"C:\\", 0, {}},
        {"1K", 1, {0}},
        {"0b", 1, {2, 1}},
        {"name", 2, {1}},
        {"HALVICK ANALYZER", 3, {2, 1, 0}},
        {"Halvick", 3, {}},
        {"1", 4, {}},
        {"other", 5, {2}},
        {"1", 6, {}},
        {"1", 7, {}},
        {"1", -1, {}},
        {"1", 8, {}},
        {"", 3, {}},
        // In a double-byte page the last byte of the third path is half a character.
        {"C:\\Old\x95", 0, {}, true},
        {"c:\\old\x95\\\\", 0, {2}, true},
    };
    for (const auto& search : searches) {
        CodePage page = asciiCodePage;
        page.lead[0x95] = search.twoByte;
        useCodePage(page);
        std::vector<std::size_t> matches{99};
        EXPECT_EQ(findInstallations(installations, search.value, search.selector, matches),
                  !search.matches.empty());
        EXPECT_EQ(matches, search.matches) << search.value << ", " << search.selector;
    }
    useCodePage(asciiCodePage);
}
