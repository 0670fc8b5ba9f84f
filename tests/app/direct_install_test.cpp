#include "app/direct_install.h"

#include "tests/rows.h"

TEST(DirectInstall, CutsTheUninstallCommandByPosition) {
    expectRows<std::string, std::string>(
        {{R"("C:\V 1\Setup.EXE" /u /x)", R"("C:\V 1\Setup.EXE"|/u /x|C:\V 1\UninstallQmx.exe)"},
         {R"("C:\V\setup.exe")", R"("C:\V\setup.exe"||C:\V\UninstallQmx.exe)"},
         {R"("C:\V\setup.exe" )", R"("C:\V\setup.exe"||C:\V\UninstallQmx.exe)"},
         {R"(C:\V\setup.exe /u)", R"(C:\V\setup.exe |u|C:\V\UninstallQmx.exe )"},
         {"setup.exe", "setup.exe||UninstallQmx.exe"},
         {R"("setup.exe" "D:\setup.exe")", R"("setup.exe"|"D:\setup.exe"|UninstallQmx.exe)"},
         {"MsiExec.exe /X{1}", "MsiExec.exe /X{1}||"},
         {"", "||"}},
        [](const std::string& text) {
            const ViewerRemoval removal = planViewerRemoval(text, "E:\\");
            EXPECT_EQ(removal.runsSetup, !removal.copyTo.empty());
            return removal.program + '|' + removal.arguments + '|' + removal.copyTo;
        });
}

TEST(DirectInstall, WaitsForTheMarkerThreeMinutesAtMost) {
    expectRows<int, int>({{0, 0}, {1, 1}, {179, 179}, {1000, 180}}, [](int stays) {
        int pauses = 0;
        awaitMarkerGone([&] { return pauses < stays; }, [&] { ++pauses; });
        return pauses;
    });
}

TEST(DirectInstall, TellsTheResultOfAFailedWaitAsANumberWithASign) {
    EXPECT_NE(couldNotStopMessage({}, 0xFFFFFFFF).text.find(" - -1. "), std::string::npos);
}

TEST(DirectInstall, TellsTheTimeInBothForms) {
    expectRows<std::tuple<SystemTime, bool>, std::string>(
        {{{{2026, 11, 24, 0, 59, 9}, true}, "2026-11-24 00:59:09"},
         {{{2026, 11, 24, 0, 59, 9}, false}, "#20261124005909"},
         {{{7, 1, 1, 1, 1, 1}, true}, "   7-01-01 01:01:01"},
         {{{65535, 65535, 65535, 65535, 65535, 65535}, true}, "65535-65535-65535 65535:65535:65"}},
        [](const SystemTime& time, bool readable) {
            std::string text = "old";
            FormatTimestamp(time, text, readable, '#');
            return text;
        });
}
