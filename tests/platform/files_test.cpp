#include "platform/files.h"

#include "tests/rows.h"

TEST(Files, DirectoryOfAProgramEndsInTheLastSeparator) {
    const std::string longest = "\\" + std::string(254, 'd') + "\\";
    expectRows<std::string, std::string>({{"C:\\media\\x\\installer.exe", "C:\\media\\x\\"},
                                          {"C:\\a/b.exe", "C:\\a/"},
                                          {"C:installer.exe", "C:"},
                                          {"installer.exe", ""},
                                          {"C:", "C:"},
                                          {"C:" + longest + "i.exe", "C:" + longest},
                                          {"C:\\" + longest + "i.exe", ""}},
                                         directoryOfProgram);
}
