#include <gtest/gtest.h>

#include "app/direct_install.h"

TEST(UninstallCommand, IsCutByPosition) {
    struct {
        const char *command, *program, *arguments, *target;  ///< target null: not setup.exe
    } const rows[] = {
        {"\"C:\\V 1\\Setup.EXE\" /u /x", "\"C:\\V 1\\Setup.EXE\"", "/u /x",
         "C:\\V 1\\UninstallQmx.exe"},
        {"\"C:\\V\\setup.exe\"", "\"C:\\V\\setup.exe\"", "", "C:\\V\\UninstallQmx.exe"},
        {"\"C:\\V\\setup.exe\" ", "\"C:\\V\\setup.exe\"", "", "C:\\V\\UninstallQmx.exe"},
        {"C:\\V\\setup.exe /u", "C:\\V\\setup.exe ", "u", "C:\\V\\UninstallQmx.exe "},
        {"setup.exe", "setup.exe", "", "UninstallQmx.exe"},
        {"\"setup.exe\" \"D:\\setup.exe\"", "\"setup.exe\"", "\"D:\\setup.exe\"",
         "UninstallQmx.exe"},
        {"MsiExec.exe /X{1}", "MsiExec.exe /X{1}", "", nullptr},
        {"", "", "", nullptr},
    };
    for (const auto& row : rows) {
        const UninstallCommand command = cutUninstallCommand(row.command);
        EXPECT_EQ(command.program, row.program);
        EXPECT_EQ(command.arguments, row.arguments);
        ASSERT_EQ(command.runsSetup, row.target != nullptr) << row.command;
        if (command.runsSetup) {
            EXPECT_EQ(uninstallerTarget(command), row.target);
        }
    }
}
