#include "ui/html_help.h"

#include "tests/rows.h"

TEST(HtmlHelp, FileHasTheProgramsNameAndFolder) {
    expectRows<std::string, std::string>({{"D:\\media\\Install.exe", "D:\\media\\Install.chm"},
                                          {"D:\\v16.4\\Install", "D:\\v16.4\\Install.chm"},
                                          {"a.b.exe", "a.b.chm"},
                                          {"", ".chm"}},
                                         helpFilePath);
}

TEST(HelpControl, IsLoadedFromAFullPathOnly) {
    const auto variable = [](const std::string& name) {
        return std::string(name == "root" ? "C:\\Windows" : "");
    };
    const struct {
        unsigned long type;
        const char *text, *path;
    } table[] = {{1, "D:\\help.ocx", "D:\\help.ocx"},
                 {1, "\\\\server\\share\\help.ocx", "\\\\server\\share\\help.ocx"},
                 {1, "%root%\\help.ocx", ""},
                 {1, "help.ocx", ""},
                 {1, "folder\\help.ocx", ""},
                 {1, "\\help.ocx", ""},
                 {1, "C:help.ocx", ""},
                 {1, "C:", ""},
                 {1, "", ""},
                 {2, "%root%\\help.ocx", "C:\\Windows\\help.ocx"},
                 {2, "C:\\%user%root%root%\\%", "C:\\%userC:\\Windowsroot%\\%"},
                 {2, "%user%\\help.ocx", ""},
                 {2, "D:\\100%.ocx", "D:\\100%.ocx"},
                 {3, "D:\\help.ocx", ""}};
    for (const auto& row : table) {
        EXPECT_EQ(registeredControlPath(row.type, row.text, variable), row.path)
            << row.type << ' ' << row.text;
    }
}
