#include "ui/html_help.h"

#include "tests/rows.h"

TEST(HtmlHelp, FileHasTheProgramsNameAndFolder) {
    expectRows<std::string, std::string>({{"D:\\media\\Install.exe", "D:\\media\\Install.chm"},
                                          {"D:\\v16.4\\Install", "D:\\v16.4\\Install.chm"},
                                          {"a.b.exe", "a.b.chm"},
                                          {"", ".chm"}},
                                         helpFilePath);
}
