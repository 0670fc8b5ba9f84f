#include "installed/installed_product_win.h"

#include "tests/installed/scratch_machine_win.h"

namespace {

const std::string list = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

void install(const ScratchMachine& machine, const std::string& key) {
    machine.setText(list + key, "DisplayName", "Halvick " + key);
    machine.setText(list + key, "DisplayVersion", "11.0.0.0");
    machine.setText(list + key, "UninstallString", key + ".exe");
    machine.setText(list + key, "InstallLocation", "C:\\" + key);
}

/// What the entries with this in their name say, in the registry's order.
std::string found(const std::string& filter) {
    std::vector<InstalledProduct> products{{"earlier", "", ""}};
    const bool any = findInstalledProducts(filter, products);
    EXPECT_EQ(any, products.size() > 1);
    std::string text;
    for (const InstalledProduct& product : products) {
        text += product.displayName + ',' + product.uninstallString + ',' +
                product.installLocation + '|';
    }
    return text.substr(text.find('|') + 1);
}

TEST(InstalledProduct, IsFoundInTheUninstallList) {
    const ScratchMachine machine;
    EXPECT_EQ(found(""), "");
    install(machine, "b");
    install(machine, "a");
    EXPECT_EQ(found("vick"), "Halvick a,a.exe,C:\\a|Halvick b,b.exe,C:\\b|");
    EXPECT_EQ(found("vick a"), "Halvick a,a.exe,C:\\a|");
    EXPECT_EQ(found("VICK"), "");
    machine.setText(list + "b", "DisplayVersion", "10.9.9.9");
    EXPECT_EQ(found("vick b"), "");
    std::vector<InstalledProduct> products;
    EXPECT_TRUE(findInstalledMakerProducts(products));
    EXPECT_FALSE(findInstalledProductsFor(4, products));
    EXPECT_FALSE(findInstalledProductsFor(-1, products));
    EXPECT_EQ(products.size(), 1u);
}

TEST(InstalledProduct, LacksNothing) {
    const ScratchMachine machine;
    for (const char* name :
         {"DisplayName", "DisplayVersion", "UninstallString", "InstallLocation"}) {
        install(machine, "a");
        EXPECT_NE(found("vick"), "");
        machine.setText(list + "a", name, std::string(260, 'x'));
        EXPECT_EQ(found(""), "") << name;
        SHDeleteValueA(HKEY_LOCAL_MACHINE, (list + "a").c_str(), name);
        EXPECT_EQ(found(""), "") << name;
    }
}

}  // namespace
