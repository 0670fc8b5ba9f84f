#include "app/uninstall_command.h"

#include <gtest/gtest.h>

namespace {

TEST(UninstallCommand, IsCutByPosition) {
    struct {
        const char *command, *program, *arguments;
        bool runsSetup;
        const char* target;
    } const rows[] = {
        {"\"C:\\V 1\\Setup.EXE\" /u /x", "\"C:\\V 1\\Setup.EXE\"", "/u /x", true,
         "C:\\V 1\\UninstallQmx.exe"},
        {"\"C:\\V\\setup.exe\"", "\"C:\\V\\setup.exe\"", "", true, "C:\\V\\UninstallQmx.exe"},
        {"\"C:\\V\\setup.exe\" ", "\"C:\\V\\setup.exe\"", "", true, "C:\\V\\UninstallQmx.exe"},
        {"C:\\V\\setup.exe /u", "C:\\V\\setup.exe ", "u", true, "C:\\V\\UninstallQmx.exe "},
        {"setup.exe", "setup.exe", "", true, "UninstallQmx.exe"},
        {"\"C:\\setup.exe\" \"D:\\setup.exe\"", "\"C:\\setup.exe\"", "\"D:\\setup.exe\"", true,
         "C:\\UninstallQmx.exe"},
        {"MsiExec.exe /X{1}", "MsiExec.exe /X{1}", "", false, nullptr},
        {"", "", "", false, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.command);
        const UninstallCommand command = cutUninstallCommand(row.command);
        EXPECT_EQ(command.program, row.program);
        EXPECT_EQ(command.arguments, row.arguments);
        EXPECT_EQ(command.runsSetup, row.runsSetup);
        if (row.target != nullptr) {
            EXPECT_EQ(uninstallerTarget(command), row.target);
        }
    }
}

}  // namespace
