#include "installed/installation_list.h"

#include <gtest/gtest.h>

#include "platform/ansi_text.h"
#include "tests/installed/sample_record.h"

namespace {

InstallationRecord recordWith(const char* name, const char* text) {
    InstallationRecord record = sampleRecord();
    record.fields[name] = text;
    return record;
}

TEST(InstallationList, TakesOneRecordPerRegistryKey) {
    std::vector<InstallationRecord> installations{recordWith("Registry Key", "HKLM\\A")};
    InstallationRecord again = recordWith("Registry Key", "hklm\\a");
    again.legacy = true;
    mergeInstallations(installations, {again, recordWith("Registry Key", "HKLM\\B"),
                                       recordWith("Registry Key", "HKLM\\b")});
    ASSERT_EQ(installations.size(), 2u);
    EXPECT_FALSE(installations[0].legacy);
    EXPECT_EQ(fieldText(installations[1], "Registry Key"), "HKLM\\B");
}

TEST(InstallationList, AnswersForSomeFieldsOnly) {
    InstallationRecord record;
    for (auto& [name, text] : record.fields) {
        text = name;
    }
    const char* const answered[] = {"Path",           "Product Id",     "Product Name",
                                    "Program Folder", "Temp Reference", "Lard",
                                    "User Data Key",  "Seinda"};
    for (const char* name : answered) {
        EXPECT_EQ(installationField(record, name), name);
    }
    EXPECT_EQ(installationField(record, "pRODUCT iD"), "Product Id");
    for (const char* name :
         {"Version", "Registry Key", "Installation Path", "", "Old User Data Key"}) {
        EXPECT_EQ(installationField(record, name), "") << name;
    }
}

TEST(InstallationList, LegacyInstallationsAnswerWithTheirOldUserDataKey) {
    InstallationRecord record = sampleRecord();
    FieldMap extras;
    storeValue(record, extras, "User Data Key", "new");
    storeValue(record, extras, "Old User Data Key", "old");
    EXPECT_EQ(installationField(record, "User Data Key"), "new");
    record.legacy = true;
    EXPECT_EQ(installationField(record, "user data key"), "old");
}

struct Search {
    const char* value;
    int selector;
    std::vector<std::size_t> matches;
};

TEST(InstallationList, FindsFromTheLastToTheFirst) {
    std::vector<InstallationRecord> installations(3, sampleRecord());
    installations[0].fields["Path"] = "C:\\Old\\";
    installations[1].fields["Path"] = "\\c:\\old";
    installations[2].fields["Path"] = "C:\\Old\x95\\";
    installations[0].fields["Product Id"] = "1k";
    installations[1].fields["Product Name"] = "Name";
    installations[2].fields["Temp Reference"] = "Other";
    const Search searches[] = {
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
    };
    for (const Search& search : searches) {
        std::vector<std::size_t> matches{99};
        EXPECT_EQ(findInstallations(installations, search.value, search.selector, matches),
                  !search.matches.empty())
            << search.value << ", " << search.selector;
        EXPECT_EQ(matches, search.matches) << search.value << ", " << search.selector;
    }

    // In a double-byte page the last byte of the third path is half a character.
    CodePage page = asciiCodePage();
    page.lead[0x95] = true;
    useCodePage(page);
    std::vector<std::size_t> matches;
    EXPECT_FALSE(findInstallations(installations, "C:\\Old\x95", 0, matches));
    EXPECT_TRUE(findInstallations(installations, "c:\\old\x95\\\\", 0, matches));
    useCodePage(asciiCodePage());
}

}  // namespace
