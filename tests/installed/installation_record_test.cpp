#include "installed/installation_record.h"

#include <gtest/gtest.h>

#include "tests/installed/sample_record.h"

namespace {

TEST(InstallationRecord, StartsWithEveryKnownFieldEmpty) {
    const FieldMap known{{"Installation Path", ""},
                         {"Lard", ""},
                         {"Path", ""},
                         {"Product Character", ""},
                         {"Product Id", ""},
                         {"Product Name", ""},
                         {"Program Folder", ""},
                         {"Registry Key", ""},
                         {"Registry Subkey", ""},
                         {"Seinda", ""},
                         {"Temp Reference", ""},
                         {"User Data Key", ""},
                         {"Version", ""}};
    EXPECT_EQ(InstallationRecord().fields, known);
}

TEST(InstallationRecord, IsValidWithTheRequiredFieldsAndOnePlace) {
    EXPECT_TRUE(isValid(sampleRecord()));
    for (const char* name :
         {"Product Id", "Product Name", "Program Folder", "Seinda", "Temp Reference"}) {
        InstallationRecord record = sampleRecord();
        record.fields[name].clear();
        EXPECT_FALSE(isValid(record)) << name;
    }
    struct Places {
        const char* installationPath;
        const char* path;
        bool valid;
    };
    for (const Places& places : {Places{"", "C:\\Old", true}, Places{"C:\\New", "C:\\Old", false},
                                 Places{"", "", false}}) {
        InstallationRecord record = sampleRecord();
        record.fields["Installation Path"] = places.installationPath;
        record.fields["Path"] = places.path;
        EXPECT_EQ(isValid(record), places.valid) << places.installationPath << ", " << places.path;
    }
}

TEST(InstallationRecord, KeepsValuesThatAreNoFieldsApart) {
    InstallationRecord record;
    FieldMap extras;
    storeValue(record, extras, "Lard", "a");
    storeValue(record, extras, "lard", "b");
    storeValue(record, extras, "", "c");
    storeValue(record, extras, "Installation Helper", "d");
    storeValue(record, extras, "Installation Helper", "e");
    EXPECT_EQ(fieldText(record, "Lard"), "a");
    EXPECT_EQ(record.fields.size(), InstallationRecord().fields.size());
    EXPECT_EQ(extras, (FieldMap{{"", "c"}, {"Installation Helper", "e"}, {"lard", "b"}}));
}

}  // namespace
