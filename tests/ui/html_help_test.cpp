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
    constexpr unsigned long text = 1, expandable = 2, binary = 3;
    expectRows<std::tuple<unsigned long, std::string>, std::string>(
        {{{text, "D:\\help.ocx"}, "D:\\help.ocx"},
         {{text, "\\\\server\\share\\help.ocx"}, "\\\\server\\share\\help.ocx"},
         {{text, "%root%\\help.ocx"}, ""},
         {{text, "help.ocx"}, ""},
         {{text, "\\help.ocx"}, ""},
         {{text, "C:help.ocx"}, ""},
         {{text, ""}, ""},
         {{expandable, "%root%\\help.ocx"}, "C:\\Windows\\help.ocx"},
         {{expandable, "C:\\%user%root%root%\\%"}, "C:\\%userC:\\Windowsroot%\\%"},
         {{expandable, "D:\\100%.ocx"}, "D:\\100%.ocx"},
         {{binary, "D:\\help.ocx"}, ""}},
        [&](unsigned long type, const std::string& path) {
            return registeredControlPath(type, path, variable);
        });
}
