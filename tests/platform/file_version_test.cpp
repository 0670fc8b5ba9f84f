#include "platform/file_version.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace {

std::string wide(std::string_view text) {
    std::string bytes;
    for (const char character : text) {
        bytes += {character, '\0'};
    }
    return bytes + std::string(2, '\0');
}

std::string word(std::size_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

void align(std::string& bytes) {
    bytes.resize((bytes.size() + 3) / 4 * 4);
}

/// A node of a version resource (VS_VERSIONINFO and what it holds). `value` is in bytes,
/// `valueLength` as the resource says it, which may lie.
std::string node(std::string_view key, const std::string& value, std::size_t valueLength,
                 const std::vector<std::string>& children = {}, bool text = true) {
    std::string bytes = word(valueLength) + word(text) + wide(key);
    bytes.insert(0, 2, '\0');
    align(bytes);
    bytes += value;
    for (const std::string& child : children) {
        align(bytes);
        bytes += child;
    }
    return bytes.replace(0, 2, word(bytes.size()));
}

std::string string(std::string_view key, std::string_view value) {
    return node(key, wide(value), value.size() + 1);
}

std::string resource(const std::vector<std::string>& tables) {
    const std::string fixed = "\xBD\x04\xEF\xFE" + std::string(48, '\0');
    return node("VS_VERSION_INFO", fixed, fixed.size(), {node("StringFileInfo", "", 0, tables)},
                false);
}

/// A copy of this program, with a version resource of the test's choice.
class FileVersion : public testing::Test {
  protected:
    FileVersion() {
        char own[MAX_PATH] = "", folder[MAX_PATH] = "", name[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, own, sizeof own);
        GetTempPathA(sizeof folder, folder);
        GetTempFileNameA(folder, "ver", 0, name);
        path = name;
        CopyFileA(own, name, FALSE);
    }
    ~FileVersion() override { DeleteFileA(path.c_str()); }

    /// Replaces every resource of the copy by this version resource; by none when it is empty.
    void put(std::string content) {
        const HANDLE update = BeginUpdateResourceA(path.c_str(), TRUE);
        ASSERT_NE(update, nullptr);
        ASSERT_TRUE(content.empty() ||
                    UpdateResourceA(update, MAKEINTRESOURCEA(16), MAKEINTRESOURCEA(1), 0,
                                    content.data(), static_cast<DWORD>(content.size())));
        ASSERT_TRUE(EndUpdateResourceA(update, FALSE));
    }

    std::string path;
};

TEST_F(FileVersion, OnlyTheUsEnglishUnicodeTableCounts) {
    std::string text = "left over";
    put("");
    EXPECT_FALSE(fileVersionText(path, text));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(fileVersionText(path + ".missing", text));

    const std::string german = node("040704b0", "", 0, {string("FileVersion", "9.9.9.9")});
    const std::string us =
        node("040904b0", "", 0,
             {string("ProductVersion", "8.8.8.8"), string("FileVersion", "7.1.20.3 beta")});
    struct {
        std::vector<std::string> tables;
        const char* text;
    } const cases[] = {
        {{us}, "Version 7.1.20.3 beta"},
        {{german, us}, "Version 7.1.20.3 beta"},
        {{german}, ""},
        {{node("040904b0", "", 0, {string("ProductVersion", "8.8.8.8")})}, ""},
        {{}, ""},
    };
    for (const auto& row : cases) {
        put(resource(row.tables));
        text = "left over";
        EXPECT_TRUE(fileVersionText(path, text));
        EXPECT_EQ(text, row.text);
    }
}

TEST_F(FileVersion, DamagedResourcesYieldNothingWorse) {
    const std::string value = node("FileVersion", wide("7.1"), 4);
    const std::string whole = resource({node("040904b0", "", 0, {value})});
    std::vector<std::string> damaged = {
        // A length far beyond the block, without a terminator before its end.
        resource({node("040904b0", "", 0, {node("FileVersion", "7\0.\0001\0", 0xFFFF)})}),
        std::string(whole.size(), '\xFF'),
        std::string(whole.size(), '\0'),
    };
    for (std::size_t size = 6; size < whole.size(); size += 26) {
        damaged.push_back(whole.substr(0, size));
    }
    for (const std::string& content : damaged) {
        put(content);
        std::string text;
        fileVersionText(path, text);
        EXPECT_TRUE(text.empty() || text.rfind("Version ", 0) == 0) << text;
        EXPECT_LE(text.size(), 8 + 2 * whole.size());
    }
}

}  // namespace
