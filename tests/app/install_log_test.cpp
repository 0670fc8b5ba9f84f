#include "app/install_log.h"

#include "tests/rows.h"

TEST(InstallLogFacts, AllowOnlyThePlainFileInThePlainFolder) {
    const std::string folder = "\\\\?\\C:\\documents\\ours", file = folder + "\\installlog.TXT";
    expectRows<InstallLogFacts, bool>(
        {{{0x10, 0x20, 1, folder, file}, true},
         {{0x10, 0x20, 1, "", ""}, true},
         {{0x10, 0x20, 1, "C:\\", "C:\\InstallLog.txt"}, true},
         {{0x410, 0x20, 1, folder, file}, false},
         {{0x10, 0x420, 1, folder, file}, false},
         {{0x10, 0x20, 2, folder, file}, false},
         {{0x10, 0x20, 1, folder, "\\\\?\\C:\\Windows\\InstallLog.txt"}, false},
         {{0x10, 0x20, 1, folder, ""}, false}},
        mayAppendToLog);
}

TEST(InstallLog, TellsTheTimeInBothForms) {
    const struct {
        SystemTime time;
        bool readable;
        std::string text;
    } rows[] = {
        {{2026, 11, 24, 0, 59, 9}, true, "2026-11-24 00:59:09"},
        {{2026, 11, 24, 0, 59, 9}, false, "#20261124005909"},
        {{7, 1, 1, 1, 1, 1}, true, "   7-01-01 01:01:01"},
        {{65535, 65535, 65535, 65535, 65535, 65535}, true, "65535-65535-65535 65535:65535:65"},
    };
    for (const auto& row : rows) {
        std::string text = "old";
        FormatTimestamp(row.time, text, row.readable, '#');
        EXPECT_EQ(text, row.text);
    }
}
