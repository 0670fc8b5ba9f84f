#include "desk/computer/machine_description.h"

#include <gtest/gtest.h>

#include "desk/computer/described_machine.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "installed/installation_index.h"
#include "platform/ansi_text.h"

namespace {

std::string wide(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char character : text) {
        bytes += {character, '\0'};
    }
    return bytes;
}

std::string withCarriageReturns(const std::string& text) {
    return replaceAll(text, "\n", "\r\n", false);
}

/// What a run reports of the uninstall list, and the program folders that are taken.
std::string seen(const MachineDescription& description) {
    DescribedMachine machine;
    machine.registry.keys = description.registry;
    std::string text;
    std::vector<InstalledProduct> products;
    std::ignore = findInstalledProducts(*machine.localMachine(), "", products);
    for (const InstalledProduct& product : products) {
        text += product.displayName + '|' + product.uninstallString + '|' +
                product.installLocation + '\n';
    }
    InstallationIndex index(machine);
    index.load(true);
    for (const InstallationRecord& record : index.records) {
        text += std::string(record.legacy ? "older: " : "") +
                std::string(fieldText(record, "Program Folder")) + '\n';
    }
    return text;
}

std::string read(const std::string& description, MachineDescription& machine) {
    const std::string file = testing::TempDir() + "machine_description";
    writeOutput(file, description);
    try {
        machine = readMachine(file, {});
        return seen(machine);
    } catch (const Refusal& reason) {
        return std::string("error: ") + reason.what();
    }
}

const std::string header = "Windows Registry Editor Version 5.00\n\n";
const std::string list =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
const std::string tree = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvick Test Equipment\\";
const std::string entry =
    "\"DisplayName\"=\"A \\\"b\\\"\"\n\"DisplayVersion\"=\"12.0.0.0\"\n"
    "\"UninstallString\"=\"C:\\\\x.exe\"\n\"InstallLocation\"=\"C:\\\\x\"\n\n";
const std::string record =
    "\"Path\"=\"x\"\n\"Product Id\"=\"x\"\n\"Product Name\"=\"x\"\n\"Seinda\"=\"x\"\n"
    "\"Temp Reference\"=\"x\"\n\"Program Folder\"=";
const std::string found = "A \"b\"|C:\\x.exe|C:\\x\n";

TEST(Machine, ReadsWhatRegeditExports) {
    const std::string listed = list + "\\a]\n" + entry;
    const std::string redirected =
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"version 5", header + listed, found},
        {"version 5 in UTF-16", wide(withCarriageReturns(header + listed)), found},
        {"version 4", withCarriageReturns("REGEDIT4\n\n" + listed), found},
        {"both views", header + list + "\\64]\n" + entry + redirected + "\\32]\n" + entry, found},
        {"keys in the order of the registry",
         header + list + "\\B]\n" + entry + list + "\\a]\n\"DisplayName\"=\"first\"\n" +
             entry.substr(entry.find('\n') + 1),
         "first" + found.substr(5) + found},
        {"a key below an entry", header + list + "\\a\\b]\n" + entry, ""},
        {"an entry that is removed", header + listed + "[-" + list.substr(1) + "\\A]\n", ""},
        {"a value that is removed", header + listed + "\"displayname\"=-\n", ""},
        {"an expandable name on two lines",
         header + listed + "\"DisplayName\"=hex(2):41,00,\\\n  e9,00,00,00\n",
         "A\xE9" + found.substr(5)},
        {"the same in version 4", "REGEDIT4\n" + listed + "\"DisplayName\"=hex(2):41,e9,00\n",
         "A\xE9" + found.substr(5)},
        {"installations in both trees",
         header + tree + "P\\1]\n" + record + "\"F\"\n" + tree + "P]\n" + record +
             "\"not a leaf\"\n" + "[HKEY_LOCAL_MACHINE\\Software\\HVQ\\Tressle Analyzer\\1]\n" +
             record + "\"G\"\n",
         "F\nolder: G\n"},
        {"other roots", header + "[HKEY_CURRENT_USER\\a]\n" + entry, ""}};
    for (const auto& [what, content, expected] : cases) {
        MachineDescription machine;
        EXPECT_EQ(read(content, machine), expected) << what;
    }
}

TEST(Machine, NamesTheLinesOfAnExportThatItDoesNotUnderstand) {
    RegistryKeys keys;
    std::vector<std::string> problems;
    readRegistryExport(header + list +
                           "]\n\"a\"=\"x\ny\"\n\"n\"=dword:00000102\n; a comment\nnonsense\n"
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
        "installed": [{"DisplayName": "A\u00e9", "DisplayVersion": "11.0.0.0",
                       "UninstallString": "x", "InstallLocation": "y"}],
        "installations": [{"older": true, "Path": "x", "Product Id": "x", "Product Name": "x",
                           "Seinda": "x", "Temp Reference": "x", "Program Folder": "F"}]})",
                   machine),
              "A\xE9|x|y\nolder: F\n");
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
