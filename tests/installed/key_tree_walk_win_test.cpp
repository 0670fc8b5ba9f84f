// The readers of the registry on what other programs may have left there.
#include "installed/key_tree_walk_win.h"

#include <optional>

#include "installed/installation_index_win.h"
#include "installed/installed_product_win.h"
#include "installed/registry_key_win.h"
#include "tests/installed/sample_record.h"
#include "tests/installed/scratch_machine_win.h"

namespace {

const std::string uninstallEntry = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\a";

class Registry : public testing::Test {
  protected:
    /// As an installation would.
    void record(const std::string& key) const {
        for (const auto& [name, text] : sampleRecord().fields) {
            if (!text.empty()) {
                machine.setText(key, name, text);
            }
        }
    }
    bool walk(const std::string& key) {
        clearWalkError();
        records.clear();
        return walkKeyTree(HKEY_LOCAL_MACHINE, key, "HKEY_LOCAL_MACHINE\\", records, extras);
    }
    void addEntry() const {
        machine.setText(uninstallEntry, "DisplayName", "Halvick 11");
        machine.setText(uninstallEntry, "DisplayVersion", "11.0.0.0");
        machine.setText(uninstallEntry, "UninstallString", "a.exe");
        machine.setText(uninstallEntry, "InstallLocation", "C:\\a");
    }
    bool discover(const std::string& filter) {
        products.clear();
        return findInstalledProducts(filter, products);
    }

    ScratchMachine machine;
    std::vector<InstallationRecord> records;
    FieldMap extras;
    std::vector<InstalledProduct> products;
};

std::string text(std::size_t length) {
    return std::string(length, 'x');
}

TEST_F(Registry, ValuesAreReadByTheirTypeSizeAndTerminator) {
    constexpr auto none = std::nullopt;
    const struct {
        const char* what;
        DWORD type;
        std::string data;
        std::optional<std::string> text;  ///< as the entries of installed programs are read
        std::optional<std::string> leaf;  ///< in a tree; none: the leaf is broken off
    } table[] = {
        {"empty", REG_SZ, "", "", ""},
        {"text", REG_SZ, {"abc\0", 4}, "abc", "abc"},
        {"expandable", REG_EXPAND_SZ, {"%a%\0", 4}, "%a%", "%a%"},
        {"zero within", REG_SZ, {"a\0b\0", 4}, "a", "a"},
        {"bytes above 127", REG_SZ, {"\xE9\xFF\0", 3}, "\xE9\xFF", "\xE9\xFF"},
        {"259 characters", REG_SZ, text(259) + '\0', text(259), text(259)},
        {"260 characters", REG_SZ, text(260) + '\0', none, text(260)},
        {"unterminated", REG_SZ, "abc", none, "abc"},
        {"260 unterminated", REG_SZ, text(260), none, text(260)},
        {"1023 characters", REG_SZ, text(1023) + '\0', none, text(1023)},
        {"1024 bytes", REG_BINARY, text(1024), none, text(1024)},
        {"1025 bytes", REG_BINARY, text(1025), none, none},
        {"64 K", REG_SZ, text(65535) + '\0', none, none},
        {"binary", REG_BINARY, {"abc\0", 4}, none, "abc"},
        {"empty binary", REG_BINARY, "", none, ""},
        {"number", REG_DWORD, "ABCD", none, "ABCD"},
        {"small number", REG_DWORD, {"A\0\0\0", 4}, none, "A"},
        {"list", REG_MULTI_SZ, {"a\0b\0\0", 5}, none, "a"},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.what);
        addEntry();
        HKEY key = nullptr;
        RegOpenKeyExA(HKEY_LOCAL_MACHINE, uninstallEntry.c_str(), 0, KEY_READ, &key);
        for (const char* name : {"DisplayName", "UninstallString", "InstallLocation"}) {
            machine.setValue(uninstallEntry, name, row.type, row.data);
            std::string buffer(300, '#');
            DWORD size = 260;
            EXPECT_EQ(readStringValue(key, name, buffer.data(), size), row.text ? 0
                                                                       : row.data.size() > 260
                                                                           ? ERROR_MORE_DATA
                                                                           : ERROR_INVALID_DATA);
            EXPECT_EQ(size, row.text ? row.data.size() : 0);
            EXPECT_EQ(buffer.substr(260), std::string(40, '#'));
            EXPECT_EQ(discover(""), row.text.has_value()) << name;
            if (row.text) {
                EXPECT_EQ(buffer.c_str(), *row.text);
            }
        }
        if (row.text && !products.empty()) {
            EXPECT_EQ(products[0].displayName, *row.text);
            EXPECT_EQ(products[0].uninstallString, *row.text);
            EXPECT_EQ(products[0].installLocation, *row.text);
        }
        RegCloseKey(key);

        record("A");
        machine.setText("A", "!", std::string(1023, '#'));  // a long one before it
        machine.setValue("A", "Lard", row.type, row.data);
        EXPECT_EQ(walk("A"), row.leaf.has_value());
        EXPECT_EQ(records.empty() ? std::nullopt : std::optional(records[0].fields["Lard"]),
                  row.leaf);
    }
}

TEST_F(Registry, EntriesThatLackAnythingAreSkipped) {
    EXPECT_FALSE(discover(""));
    for (const char* name :
         {"DisplayName", "DisplayVersion", "UninstallString", "InstallLocation"}) {
        addEntry();
        EXPECT_TRUE(discover("vick"));
        SHDeleteValueA(HKEY_LOCAL_MACHINE, uninstallEntry.c_str(), name);
        EXPECT_FALSE(discover("")) << name;
    }
}

TEST_F(Registry, TreesAreWalkedToTheirLeaves) {
    EXPECT_FALSE(walk("T\\"));
    EXPECT_STREQ(walkError(), "Could not open registry key \"HKEY_LOCAL_MACHINE\\T\\\"");
    const std::string longName(255, '\xE9');
    std::string deep = "T\\D";
    for (int level = 0; level < 200; ++level) {
        deep += "\\L";
        machine.createKey(deep);
    }
    for (const std::string& key : {std::string("T"), std::string("T\\A"), std::string("T\\B"),
                                   std::string("T\\B\\C"), deep, "T\\" + longName}) {
        record(key);
    }
    machine.setText("T\\A", longName, "long");
    machine.setText("T\\A", "", "default");
    machine.setValue("T\\B\\C", "!", REG_BINARY, text(1025));  // a first value is passed over
    record("T\\E");
    machine.setText("T\\E", std::string(1024, 'z'), "");  // a later one is not
    machine.setText("T\\Incomplete", "Product Id", "0b");
    machine.createKey("T\\Empty");
    EXPECT_FALSE(walk("T\\Empty"));
    SetLastError(5);
    EXPECT_TRUE(walk("T\\"));
    EXPECT_STREQ(walkError(), "RegEnumValue failed with 5.");
    std::vector<std::string> keys;
    for (InstallationRecord& found : records) {
        keys.push_back(found.fields["Registry Key"].substr(19));
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"T\\A", "T\\B\\C", deep, "T\\" + longName}));
    EXPECT_EQ(extras, (FieldMap{{"", "default"}, {longName, "long"}}));
}

TEST_F(Registry, TheIndexHoldsBothTreesOnce) {
    const std::string maker = "Software\\Halvick Test Equipment\\",
                      older = "Software\\HVQ\\Tressle Analyzer\\";
    InstallationIndex index;
    std::vector<std::size_t> matches;
    EXPECT_FALSE(index.load(true));
    record(older + "B");
    EXPECT_TRUE(index.find("halvick ANALYZER", installation_selector::programFolder, matches));
    EXPECT_EQ(matches, std::vector<std::size_t>{0});
    record(maker + "A");
    machine.setText(maker + "Common", "Installation Helper", "C:\\Helper");
    machine.setText(older + "B", "Old User Data Key", "old");
    EXPECT_TRUE(index.load(false));
    EXPECT_EQ(index.records.size(), 1u);
    EXPECT_TRUE(index.load(true));
    EXPECT_TRUE(
        index.readTree("SOFTWARE\\HVQ\\Tressle Analyzer\\", records, extras, MergeMode::Current));
    ASSERT_EQ(index.records.size(), 2u);
    EXPECT_FALSE(index.records[0].legacy);
    EXPECT_TRUE(index.records[1].legacy);
    EXPECT_EQ(index.helperLocation, "C:\\Helper");
    EXPECT_EQ(index.field(1, "User Data Key"), "old");
    EXPECT_EQ(index.field(2, "User Data Key"), "");
}

}  // namespace
