#include "desk/computer/machine_description.h"

#include <gtest/gtest.h>

#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "installed/installation_index.h"
#include "installed/installed_product.h"

namespace {

std::string wide(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char character : text) {
        bytes += {character, '\0'};
    }
    return bytes;
}

/// A value as `read` tells it.
std::string value(const std::string& key, const std::string& name, const std::string& text,
                  std::uint32_t type = stringType) {
    return key + '|' + name + '|' + std::to_string(type) + '|' + text + '\0';
}

/// All values of the machine, in the order in which a run meets them.
std::string read(const std::string& description, MachineDescription& machine) {
    const std::string file = testing::TempDir() + "machine_description";
    writeOutput(file, description);
    try {
        machine = readMachine(file, {});
    } catch (const Refusal& reason) {
        return std::string("error: ") + reason.what();
    }
    std::string text;
    for (const auto& [key, values] : machine.registry) {
        for (const auto& [name, content] : values) {
            text += key + '|' + name + '|' + std::to_string(content.type) + '|' + content.data;
        }
    }
    return text;
}

const std::string header = "Windows Registry Editor Version 5.00\n\n";
const std::string root = "[HKEY_LOCAL_MACHINE\\Software\\";

TEST(Machine, ReadsWhatRegeditExports) {
    const std::string key = root + "a]\n\"n\"=\"A \\\"b\\\\\"\n";
    const std::string found = value("Software\\a", "n", "A \"b\\");
    const std::string expandable = value("Software\\a", "n", "A\xE9", expandableStringType);
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"version 5", header + key, found},
        {"version 5 in UTF-16", wide(replaceAll(header + key, "\n", "\r\n", false)), found},
        {"version 4", replaceAll("REGEDIT4\n\n" + key, "\n", "\r\n", false), found},
        {"both views", header + key + root + "WOW6432Node\\b]\n\"n\"=\"32\"\n",
         value("SOFTWARE\\b", "n", "32")},
        {"keys in the order of the registry", header + root + "B]\n@=\"2\"\n" + key,
         found + value("Software\\B", "", "2")},
        {"a key that is removed", header + key + "[-" + root.substr(1) + "A]\n", ""},
        {"a value that is removed", header + key + "\"N\"=-\n", ""},
        {"an expandable text on two lines", header + key + "\"n\"=hex(2):41,00,\\\n  e9,00,00,00\n",
         expandable},
        {"the same in version 4", "REGEDIT4\n" + key + "\"n\"=hex(2):41,e9,00\n", expandable},
        {"other roots", header + key + "[HKEY_CURRENT_USER\\a]\n\"n\"=\"x\"\n", found}};
    for (const auto& [what, content, expected] : cases) {
        MachineDescription machine;
        EXPECT_EQ(read(content, machine), expected) << what;
    }
}

TEST(Machine, NamesTheLinesOfAnExportThatItDoesNotUnderstand) {
    RegistryKeys keys;
    std::vector<std::string> problems;
    readRegistryExport(header + root +
                           "a]\n\"a\"=\"x\ny\"\n\"n\"=dword:00000102\n; a comment\nnonsense\n"
                           "\"b\"=hex:4g\n\"t\"=hax:41\n\"c\n",
                       keys, problems);
    EXPECT_EQ(problems,
              (std::vector<std::string>{"line 8 is not understood", "line 9 is not understood",
                                        "line 10 is not understood", "line 11 is not understood"}));
    ASSERT_EQ(keys.size(), 1u);
    EXPECT_EQ(keys.begin()->second["n"].data, std::string("\2\1\0\0", 4));
}

TEST(Machine, ReadsJson) {
    MachineDescription machine;
    EXPECT_EQ(read(R"({"windows": "windows xp", "administrator": false,
        "installed": [{"key": "a", "DisplayName": "A\u00e9"}],
        "installations": [{"key": "b", "older": true, "Lard": "F"}, {"key": "c", "Path": "x"}]})",
                   machine),
              value(std::string(makerTree) + "c", "Path", "x") +
                  value(std::string(olderMakerTree) + "b", "Lard", "F") +
                  value(std::string(uninstallListKey) + "\\a", "DisplayName", "A\xE9"));
    EXPECT_EQ(machine.facts.majorVersion, 5u);
    EXPECT_FALSE(machine.administrator);
    EXPECT_FALSE(machine.is64Bit);
    EXPECT_EQ(machine.programFiles, "C:\\Program Files");
    for (const char* wrong :
         {"", "[]", "{", R"({"window": 1})", R"({"windows": "Windows 1"})", R"({"bits": 16})",
          R"({"windows": {"major": -1}})", R"({"installed": {}})", R"({"installed": [1]})",
          R"({"installed": [{"DisplayName": 1}]})", R"({"installed": [{"DisplayNam": "x"}]})",
          R"({"registry": "missing.reg"})"}) {
        EXPECT_TRUE(read(wrong, machine).starts_with("error: ")) << wrong;
    }
}

TEST(WesternText, GoesToUtf8AndBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != 0x81 && byte != 0x8D && byte != 0x8F && byte != 0x90 && byte != 0x9D) {
            all += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(fromUtf8(toUtf8(all)), all);
    EXPECT_EQ(toUtf8("\x80\xE9"), "\xE2\x82\xAC\xC3\xA9");
    EXPECT_EQ(fromUtf8("\xF0\x9F\x98\x80 \xC3 \xC0\xAF"), "? ? ??");
    EXPECT_EQ(fromUtf16(std::string_view("\xAC\x20\x3D\xD8\x00\xDEx", 7)), "\x80?");
    useCodePage(westernCodePage());
    EXPECT_EQ(lowerCase("\x8A\xC0\xD7\xDF\x9F"), "\x9A\xE0\xD7\xDF\xFF");
    useCodePage(asciiCodePage);
}

}  // namespace
