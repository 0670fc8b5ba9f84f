#include "installed/installation_record.h"

#include "tests/installed/described_tree.h"
#include "tests/rows.h"

TEST(InstallationRecord, IsValidWithTheRequiredFieldsAndOnePlace) {
    EXPECT_TRUE(isValid(sampleRecord()));
    for (const char* required : {"Product Id", "Product Name", "Program Folder", "Seinda",
                                 "Temp Reference", "Installation Path"}) {
        InstallationRecord record = sampleRecord();
        record.fields[required] = "";
        EXPECT_FALSE(isValid(record)) << "without " << required;
    }
    InstallationRecord record = sampleRecord();
    record.fields["Path"] = "C:\\Old";
    EXPECT_FALSE(isValid(record)) << "with two places";
    record.fields["Installation Path"] = "";
    EXPECT_TRUE(isValid(record)) << "with the old place";
}

TEST(InstallationRecord, KeepsValuesThatAreNoFieldsApart) {
    InstallationRecord record;
    FieldMap extras;
    for (const auto& [name, text] :
         {std::pair("Lard", "a"), {"lard", "b"}, {"", "c"}, {"Helper", "d"}, {"Helper", "e"}}) {
        storeValue(record, extras, name, text);
    }
    EXPECT_EQ(record.fields.size(), 13u);
    EXPECT_EQ(fieldText(record.fields, "Lard"), "a");
    EXPECT_EQ(extras, (FieldMap{{"", "c"}, {"Helper", "e"}, {"lard", "b"}}));
}

TEST(InstallationRecord, LooksForTheAnalyserInBothPlaces) {
    InstallationRecord record;
    record.fields["Installation Path"] = "C:\\New";
    record.fields["Path"] = "C:\\Old\\";
    EXPECT_EQ(analyserPaths(record)[0], "C:\\New\\Executables\\Core\\qmx.exe");
    EXPECT_EQ(analyserPaths(record)[1], "C:\\Old\\bin\\release\\qmx.exe");
    record.fields["Path"] = std::string(1023, 'x');
    EXPECT_EQ(analyserPaths(record)[1].size(), 260u);
    expectRows<std::string, std::string>({{"Build 12.4.1", "12.4.1"},
                                          {"Version 7, 1, 2.0", "2.0"},
                                          {"12.4.1", "12.4.1"},
                                          {"12.4b", ""}},
                                         versionPart);
}
