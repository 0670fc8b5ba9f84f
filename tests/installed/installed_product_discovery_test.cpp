#include "installed/installed_product_discovery.h"

#include "catalogue/code_directory.h"
#include "tests/installed/scratch_machine.h"

namespace {

const std::string uninstallList = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

class Discovery : public testing::Test {
  protected:
    void addEntry(const std::string& entry, const std::string& displayName) const {
        const std::string key = uninstallList + "\\" + entry;
        machine.setText(key, "DisplayName", displayName);
        machine.setText(key, "DisplayVersion", "11.0.0.0");
        machine.setText(key, "UninstallString", entry + ".exe");
        machine.setText(key, "InstallLocation", "C:\\" + entry);
    }

    std::vector<std::string> found(const std::string& filter = "Halvick") const {
        std::vector<InstalledProduct> products;
        const bool any = findInstalledProducts(filter, products);
        EXPECT_EQ(any, !products.empty());
        std::vector<std::string> names;
        for (const InstalledProduct& product : products) {
            names.push_back(product.displayName);
        }
        return names;
    }

    using Names = std::vector<std::string>;
    ScratchMachine machine;
};

TEST_F(Discovery, WithoutAListFindsNothing) {
    std::vector<InstalledProduct> products{{"kept", "", ""}};
    EXPECT_FALSE(findInstalledProducts("Halvick", products));
    EXPECT_EQ(products.size(), 1u);
}

TEST_F(Discovery, FiltersByTheNameAndAppends) {
    addEntry("a", "Halvick Viewer 12");
    addEntry("b", "HALVICK Viewer");
    addEntry("c", "The Halvick Viewer 12");
    addEntry("d", "Halvick Viewer 12");
    std::vector<InstalledProduct> products{{"kept", "", ""}};
    EXPECT_TRUE(findInstalledMakerProducts(products));
    ASSERT_EQ(products.size(), 4u);
    EXPECT_EQ(products[1].displayName, "Halvick Viewer 12");
    EXPECT_EQ(products[1].uninstallString, "a.exe");
    EXPECT_EQ(products[1].installLocation, "C:\\a");
    EXPECT_EQ(products[2].displayName, "The Halvick Viewer 12");
    EXPECT_EQ(products[3].uninstallString, "d.exe");
    EXPECT_FALSE(findInstalledProducts("Lost", products));
}

TEST_F(Discovery, FindsAProductByItsDirectoryName) {
    std::string name;
    ASSERT_TRUE(findDirectoryName(1, name));
    addEntry("a", name + " 12");
    addEntry("b", "Halvick Viewer 12");
    std::vector<InstalledProduct> products;
    EXPECT_TRUE(findInstalledProductsFor(1, products));
    ASSERT_EQ(products.size(), 1u);
    EXPECT_EQ(products[0].displayName, name + " 12");
    EXPECT_FALSE(findInstalledProductsFor(1023, products));
}

TEST_F(Discovery, SkipsEntriesThatLackAnything) {
    for (const char* name :
         {"DisplayName", "DisplayVersion", "UninstallString", "InstallLocation"}) {
        addEntry(name, "Halvick");
        SHDeleteValueA(HKEY_LOCAL_MACHINE, (uninstallList + "\\" + name).c_str(), name);
    }
    addEntry("old", "Halvick");
    machine.setText(uninstallList + "\\old", "DisplayVersion", "10.9.9.9");
    addEntry("short", "Halvick");
    machine.setText(uninstallList + "\\short", "DisplayVersion", "11.0");
    EXPECT_EQ(found(), Names());
}

struct StoredText {
    DWORD type;
    std::string data;
    bool read;
};

TEST_F(Discovery, TreatsTextsOfTheWrongKindAsAbsent) {
    const StoredText texts[] = {
        {REG_SZ, std::string("Halvick\0", 8), true},
        {REG_EXPAND_SZ, std::string("Halvick\0", 8), true},
        {REG_SZ, "Halvick" + std::string(252, '\xE9') + '\0', true},
        {REG_SZ, "Halvick" + std::string(253, 'x') + '\0', false},
        {REG_SZ, "Halvick" + std::string(65528, 'x') + '\0', false},
        {REG_SZ, "Halvick", false},
        {REG_BINARY, std::string("Halvick\0", 8), false},
        {REG_DWORD, std::string("Hal\0", 4), false},
        {REG_MULTI_SZ, std::string("Halvick\0\0", 9), false},
    };
    addEntry("a", "Halvick");
    const std::string key = uninstallList + "\\a";
    for (const char* name : {"DisplayName", "UninstallString", "InstallLocation"}) {
        for (const StoredText& text : texts) {
            machine.setValue(key, name, text.type, text.data);
            EXPECT_EQ(found().size(), text.read ? 1u : 0u)
                << name << " of type " << text.type << " with " << text.data.size() << " bytes";
        }
        machine.setText(key, name, "Halvick");
    }
    // Empty but there.
    machine.setValue(key, "InstallLocation", REG_SZ, "");
    EXPECT_EQ(found(), Names{"Halvick"});
    machine.setValue(key, "DisplayName", REG_SZ, "");
    EXPECT_EQ(found(), Names());
    EXPECT_EQ(found(""), Names{""});
}

}  // namespace
