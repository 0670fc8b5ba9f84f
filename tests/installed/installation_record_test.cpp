#include "installed/installation_record.h"

#include <gtest/gtest.h>

#include "tests/installed/sample_record.h"

TEST(InstallationRecord, IsValidWithTheRequiredFieldsAndOnePlace) {
    EXPECT_TRUE(isValid(sampleRecord()));
    for (const auto& [field, text, valid] : {std::tuple("Product Id", "", false),
                                             {"Product Name", "", false},
                                             {"Program Folder", "", false},
                                             {"Seinda", "", false},
                                             {"Temp Reference", "", false},
                                             {"Installation Path", "", false},
                                             {"Path", "C:\\Old", false},
                                             {"Version", "", true}}) {
        InstallationRecord record = sampleRecord();
        record.fields[field] = text;
        EXPECT_EQ(isValid(record), valid) << field;
    }
    InstallationRecord old = sampleRecord();
    old.fields["Path"].swap(old.fields["Installation Path"]);
    EXPECT_TRUE(isValid(old));
}

TEST(InstallationRecord, KeepsValuesThatAreNoFieldsApart) {
    InstallationRecord record;
    FieldMap known, extras;
    for (const char* field :
         {"Installation Path", "Lard", "Path", "Product Character", "Product Id", "Product Name",
          "Program Folder", "Registry Key", "Registry Subkey", "Seinda", "Temp Reference",
          "User Data Key", "Version"}) {
        known[field];
    }
    EXPECT_EQ(record.fields, known);
    for (const auto& [name, text] :
         {std::pair("Lard", "a"), std::pair("lard", "b"), std::pair("", "c"),
          std::pair("Helper", "d"), std::pair("Helper", "e")}) {
        storeValue(record, extras, name, text);
    }
    known["Lard"] = "a";
    EXPECT_EQ(record.fields, known);
    EXPECT_EQ(extras, (FieldMap{{"", "c"}, {"Helper", "e"}, {"lard", "b"}}));
}
