#include "app/setup_parameters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "catalogue/product_code.h"
#include "ui/product_type.h"

using namespace product_type;

namespace {

TEST(SetupParameters, HoldEveryDecision) {
    CProductData catalogue;
    const struct {
        const char* code;
        unsigned type;
        const char* suffix;
        bool x64;
        const char *typeField, *bitness;
    } rows[] = {
        {"04", live, "", true, "LIVE", "x86"},
        {"07", live, "", true, "LIVE x64", "x64"},
        {"1m", live, "", false, "LIVE x86", "x86"},
        {"07", live, "Pro", true, "LIVE Pro x64", "x64"},
        {"1u", live, "Pro", true, "LIVE Pro x86", "x86"},
        {"07", demonstration, "Pro", true, "DEMO", "x64"},
        {"1m", viewer, "Pro", true, "VIEW", "x64"},
        {"1w", viewer, "", true, "VIEW x86", "x86"},
        {"1u", demonstration, "", true, "DEMO x86", "x86"},
        {"04", 0, "Pro", true, "LIVE Pro", "x86"},
        {"04", demonstration | viewer, "", true, "DEMO", "x86"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(setupParameters(catalogue,
                                  {row.code, numberFromCode(row.code), row.type, row.suffix,
                                   "C:\\a b`\\c", row.x64},
                                  "A Folder"),
                  std::string("/hide_usd -build=16.4.10002.0`-pid=") + row.code +
                      "`-pf=A Folder`-type=" + row.typeField + "`-bitness=" + row.bitness +
                      "`-tmp=C:\\a b`\\`");
    }
    EXPECT_TRUE(directSetupParameters(catalogue, "1Q", "a").ends_with("-type=LIVE`-tmp=`"));
    // 2048 characters, the last backquote among them or just cut off.
    const std::size_t rest = setupParameters(catalogue, {}, "").size();
    const std::string longest(2048 - rest, 'f');
    EXPECT_EQ(setupParameters(catalogue, {}, longest).back(), '`');
    EXPECT_EQ(setupParameters(catalogue, {}, longest + 'f').size(), 2048u);
}

TEST(SetupParameters, ADemonstrationTakesThePlaceOfItsProduct) {
    CProductData catalogue;
    std::string code = "07", name;
    int number = 7;
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

}  // namespace
