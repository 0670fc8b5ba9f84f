#include "app/setup_parameters.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "ui/product_type.h"

using namespace product_type;

TEST(SetupParameters, ClosesEachFieldAndCutsAt2048) {
    EXPECT_EQ(composeSetupParameters({{"-build", "1.2.3.4"}, {"-pf", "A B"}, {"-tmp", ""}}),
              "/hide_usd -build=1.2.3.4`-pf=A B`-tmp=`");
    const std::string start = "/hide_usd -t=" + std::string(2034, 'x');
    EXPECT_EQ(composeSetupParameters({{"-t", std::string(2034, 'x')}}), start + '`');
    EXPECT_EQ(composeSetupParameters({{"-t", std::string(2035, 'x')}}), start + 'x');
}

TEST(SetupParameters, Fields) {
    struct {
        unsigned type;
        int number;
        const char *suffix, *bitness, *word;
    } const cases[] = {
        {live, 4, "", "x64", "LIVE"},
        {live, 7, "", "x64", "LIVE x64"},
        {live, 51, "", "x86", "LIVE x86"},
        {live, 7, "Pro", "x64", "LIVE Pro x64"},
        {live, 58, "Pro", "x64", "LIVE Pro x86"},
        {demonstration, 7, "Pro", "x64", "DEMO"},
        {viewer, 51, "Pro", "x64", "VIEW"},
        {viewer, 60, "", "x64", "VIEW x86"},
        {demonstration, 58, "", "", "DEMO x86"},
        {0, 4, "Pro", "", "LIVE Pro"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(productTypeWord(row.type, row.number, row.suffix, row.bitness), row.word);
    }
    EXPECT_EQ(productTypeWord(demonstration | viewer, 4, "", ""), "DEMO");
    EXPECT_STREQ(programFolderEdition(demonstration), "Demo");
    EXPECT_STREQ(programFolderEdition(viewer), "Viewer");
    EXPECT_STREQ(programFolderEdition(live), "");
    EXPECT_EQ(setupBitness(true, true), "x64");
    EXPECT_EQ(setupBitness(true, false), "x86");
    EXPECT_EQ(setupBitness(false, true), "x86");
    EXPECT_EQ(temporaryFolder("C:\\a b`\\"), "C:\\a b`\\");
    EXPECT_EQ(temporaryFolder("C:\\a\\b"), "C:\\a\\");
    EXPECT_EQ(temporaryFolder("a"), "");
}

TEST(SetupRequest, BecomesTheWholeString) {
    CProductData catalogue;
    std::string code = "07", name;
    int number = 7;
    EXPECT_EQ(setupParameters(catalogue, {code, number, live, "", "D:\\M\\", true}, "Folder"),
              "/hide_usd -build=16.4.10002.0`-pid=07`-pf=Folder`-type=LIVE x64`-bitness=x64`"
              "-tmp=D:\\M\\`");
    EXPECT_EQ(directSetupParameters(catalogue, "1Q", "D:\\M\\"),
              "/hide_usd -build=16.4.10002.0`-pid=1Q`-pf=Bluetooth SIG`-type=LIVE`-tmp=D:\\M\\`");
    EXPECT_TRUE(switchToDemonstration(catalogue, code, name, number));
    EXPECT_EQ(code + ' ' + name, "0u " + catalogue.ProductNames.at("0u"));
    EXPECT_EQ(number, 26);
    EXPECT_FALSE(switchToDemonstration(catalogue, code, name, number));
    EXPECT_EQ(programFolderName(catalogue, {code, number, demonstration, "", "", false}),
              name + " 16.4.10002.0");
}

TEST(ProgramFolder, IsNumberedFromTwo) {
    const std::string longName(300, 'n'), longFolder = "Halvick " + longName;
    struct {
        int product;
        std::string name;
        std::vector<std::string> taken;
        std::string folder;
    } const cases[] = {
        {4, "X", {}, "Halvick X"},
        {4, "X", {"Halvick X", "Halvick X 2"}, "Halvick X 3"},
        {4, "X", {"Halvick X 2"}, "Halvick X"},
        {55, "X", {"X", "Halvick X"}, "X 2"},
        {56, "X", {}, "X"},
        {4, longName, {}, longFolder},
        // The number no longer fits: the search ends all the same.
        {4, longName, {longFolder, longFolder.substr(0, 260)}, longFolder.substr(0, 260)},
    };
    for (const auto& row : cases) {
        const auto isTaken = [&row](const std::string& name) {
            return std::find(row.taken.begin(), row.taken.end(), name) != row.taken.end();
        };
        EXPECT_EQ(uniqueProgramFolder(row.name, row.product, isTaken), row.folder);
    }
}
