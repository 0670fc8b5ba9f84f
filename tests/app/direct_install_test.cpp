#include "app/direct_install.h"

#include "tests/rows.h"

TEST(DirectInstall, CutsTheUninstallCommandByPosition) {
    expectRows<std::string, std::string>(
        {{R"("C:\V 1\Setup.EXE" /u /x)", R"("C:\V 1\Setup.EXE"|/u /x|C:\V 1\UninstallQmx.exe)"},
         {R"("C:\V\setup.exe")", R"("C:\V\setup.exe"||C:\V\UninstallQmx.exe)"},
         {R"(C:\V\setup.exe /u)", R"(C:\V\setup.exe |u|C:\V\UninstallQmx.exe )"},
         {"setup.exe", "setup.exe||UninstallQmx.exe"},
         {R"("setup.exe" "D:\setup.exe")", R"("setup.exe"|"D:\setup.exe"|UninstallQmx.exe)"},
         {"MsiExec.exe /X{1}", "MsiExec.exe /X{1}||"}},
        [](const std::string& text) {
            const ViewerRemoval removal = planViewerRemoval(text, "E:\\");
            EXPECT_EQ(removal.runsSetup, !removal.copyTo.empty());
            return removal.program + '|' + removal.arguments + '|' + removal.copyTo;
        });
}
