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

TEST(InstalledProduct, LacksNothing) {
    const ScratchMachine machine;
    std::vector<InstalledProduct> products;
    EXPECT_FALSE(findInstalledMakerProducts(products)) << "there is no list";
    install(machine, "a");
    EXPECT_TRUE(findInstalledMakerProducts(products));
    EXPECT_FALSE(findInstalledProductsFor(4, products) || findInstalledProductsFor(-1, products));
    EXPECT_EQ(products.size(), 1u);
    for (const char* name :
         {"DisplayName", "DisplayVersion", "UninstallString", "InstallLocation"}) {
        install(machine, "a");
        EXPECT_TRUE(findInstalledProducts("vick a", products));
        machine.setText(list + "a", name, std::string(260, 'x'));
        EXPECT_FALSE(findInstalledProducts("", products)) << name;
        SHDeleteValueA(HKEY_LOCAL_MACHINE, (list + "a").c_str(), name);
        EXPECT_FALSE(findInstalledProducts("", products)) << name;
    }
}

}  // namespace
