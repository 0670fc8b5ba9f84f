#include "app/setup_parameters.h"

#include "catalogue/product_code.h"
#include "desk/computer/described_machine.h"
#include "tests/rows.h"

using namespace product_type;

TEST(SetupParameters, HoldEveryDecision) {
    const CProductData catalogue;
    expectRows<std::tuple<std::string, unsigned, std::string, bool>, std::string>(
        {{{"1m", live, "", false}, "LIVE x86`-bitness=x86"},
         {{"07", live, "Pro", true}, "LIVE Pro x64`-bitness=x64"},
         {{"1u", live, "Pro", true}, "LIVE Pro x86`-bitness=x86"},
         {{"1m", viewer, "Pro", true}, "VIEW`-bitness=x64"},
         {{"1u", demonstration, "", true}, "DEMO x86`-bitness=x86"},
         {{"04", 0, "Pro", true}, "LIVE Pro`-bitness=x86"},
         {{"04", demonstration | viewer, "", true}, "DEMO`-bitness=x86"}},
        [&](const std::string& code, unsigned type, const std::string& suffix, bool x64) {
            const std::string parameters = setupParameters(
                catalogue, {code, numberFromCode(code), type, suffix, "C:\\a b`\\c", x64}, "");
            EXPECT_TRUE(parameters.ends_with("`-tmp=C:\\a b`\\`")) << parameters;
            const std::size_t start = parameters.find("-type=") + std::size("-type=") - 1;
            return parameters.substr(start, parameters.rfind("`-tmp") - start);
        });
    EXPECT_TRUE(directSetupParameters(catalogue, "1Q", "a").ends_with("-type=LIVE`-tmp=`"));
    // 2048 characters, the last backquote among them or just cut off.
    const std::string longest(2048 - setupParameters(catalogue, {}, "").size(), 'f');
    EXPECT_EQ(setupParameters(catalogue, {}, longest).back(), '`');
    EXPECT_EQ(setupParameters(catalogue, {}, longest + 'f').size(), 2048u);
}

TEST(SetupParameters, TheProgramFolderIsNumberedAsFarAsItFits) {
    constexpr int classic = 4, lowEnergy = 55;
    const std::string longName(300, 'n'), longFolder = "Halvick " + longName;
    using Folders = std::vector<std::string>;
    expectRows<std::tuple<int, std::string, Folders>, std::string>(
        {{{classic, "X", {"halvick x", "Halvick X 2"}}, "Halvick X 3"},
         {{classic, "X", {"Halvick X 2"}}, "Halvick X"},
         {{lowEnergy, "X", {"X", "Halvick X"}}, "X 2"},
         {{classic, longName, {}}, longFolder},
         // The number no longer fits: the search ends all the same.
         {{classic, longName, {longFolder, longFolder.substr(0, 260)}}, longFolder.substr(0, 260)}},
        [](int product, const std::string& name, const Folders& taken) {
            DescribedMachine machine;
            InstallationIndex index(machine);
            for (const std::string& folder : taken) {
                index.records.emplace_back().fields["Program Folder"] = folder;
            }
            return uniqueProgramFolder(name, product, index);
        });
}
