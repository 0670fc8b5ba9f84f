#include "installed/installed_product.h"

#include "tests/installed/described_tree.h"
#include "tests/rows.h"

using namespace std::string_literals;

const std::string list = uninstallListKey;

TEST(InstalledProduct, IsReportedWhenItsEntryIsWhole) {
    constexpr std::uint32_t text = 1, expandable = 2, binary = 3;
    const std::string longest(259, 'x');
    // One value that differs from a whole entry's.
    expectRows<std::tuple<std::string, std::uint32_t, std::string>, EntryState>(
        {{{"Comment", text, "\0"s}, EntryState::Reported},
         {{"DisplayName", expandable, "A Halvick\0"s}, EntryState::Reported},
         {{"DisplayName", text, "HALVICK Viewer\0"s}, EntryState::OtherProduct},
         {{"DisplayName", text, ""}, EntryState::OtherProduct},  // the empty text
         {{"DisplayName", text, "Halvick" + longest + '\0'}, EntryState::NoDisplayName},
         {{"DisplayVersion", text, "11.0.0.0\0"s}, EntryState::Reported},
         {{"DisplayVersion", binary, "11.0.0.0\0"s}, EntryState::NoVersion},
         {{"UninstallString", text, longest + '\0'}, EntryState::Reported}},
        [](const std::string& name, std::uint32_t dataType, const std::string& data) {
            DescribedMachine machine;
            setEntry(machine.registry.keys, "entry", "Halvick Viewer 12");
            machine.registry.keys["entry"][name] = {dataType, data};
            std::unique_ptr<KeyReader> entry;
            EXPECT_EQ(machine.localMachine()->openSubkey("entry", entry), errorSuccess);
            InstalledProduct product;
            return readEntry(*entry, "Halvick", product);
        });
}

TEST(InstalledProduct, IsFoundInTheOrderOfTheListWhateverElseIsInIt) {
    DescribedMachine machine;
    std::vector<InstalledProduct> products;
    EXPECT_FALSE(findInstalledMakerProducts(*machine.localMachine(), products)) << "no list";
    // A long name of an entry, one that cannot be opened, and keys below entries.
    const std::string longName(250, 'm');
    for (const std::string& key : {"a"s, "b"s, longName, "z"s, "z\\below"s}) {
        setEntry(machine.registry.keys, list + '\\' + key, "Halvick " + key.substr(0, 9));
    }
    setTexts(machine.registry.keys, list + "\\c", {{"DisplayName", "Halvick without the rest"}});
    machine.registry.failures[list + "\\b"].open = 5;
    EXPECT_TRUE(findInstalledMakerProducts(*machine.localMachine(), products));
    EXPECT_TRUE(findInstalledProducts(*machine.localMachine(), "ick a", products));
    std::string names;
    for (const InstalledProduct& product : products) {
        names += product.displayName + ", ";
    }
    EXPECT_EQ(names, "Halvick a, Halvick mmmmmmmmm, Halvick z, Halvick a, ");
    EXPECT_FALSE(findInstalledProductsFor(*machine.localMachine(), 4, products));
    EXPECT_FALSE(findInstalledProductsFor(*machine.localMachine(), -1, products));
    // A registry that fails half-way has shown what came before.
    machine.registry.failures[list] = {.enumerate = 5, .fromIndex = 1};
    products.clear();
    EXPECT_TRUE(findInstalledMakerProducts(*machine.localMachine(), products));
    EXPECT_EQ(products.size(), 1U);
}
