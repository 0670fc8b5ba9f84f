#include <gtest/gtest.h>

#include "app/direct_install.h"
#include "app/install_log.h"

TEST(DirectInstallTexts, NameTheProductAndTheError) {
    const InstalledProduct product{"The Viewer", "", "C:\\The Viewer"};
    EXPECT_EQ(analyserPath(product), "C:\\The Viewer\\Executables\\Core\\qmx.exe");
    EXPECT_EQ(importMarkerPath(product), "C:\\The Viewer\\liveimport.ini");
    const Message message = couldNotStopMessage(product, 0xFFFFFFFF);
    EXPECT_EQ(message.text,
              "Could not stop \"C:\\The Viewer\" - -1. Please close all copies of The Viewer and "
              "restart the installation.");
    EXPECT_EQ(message.icon, MessageIcon::Warning);
    EXPECT_EQ(message.buttons, MessageButtons::Ok);
    EXPECT_EQ(copyFailedLogLine({2026, 1, 2, 23, 4, 5}, "D:\\a b", "C:\\c", 5),
              "2026-01-02 23:04:05 Version 16.4.10002.0 CopyFile from \"D:\\a b\" to \"C:\\c\" "
              "failed - 5");
}

TEST(Timestamp, BothForms) {
    struct {
        SystemTime time;
        bool readable;
        const char* text;
    } const rows[] = {
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

TEST(InstallLogFacts, AllowOnlyThePlainFileInThePlainFolder) {
    const std::string folder = "\\\\?\\C:\\documents\\ours", file = folder + "\\installlog.TXT";
    const struct {
        InstallLogFacts facts;
        bool allowed;
    } table[] = {
        {{0x10, 0x20, 1, folder, file}, true},
        {{0x10, 0x20, 1, "", ""}, true},
        {{0x10, 0x20, 1, "C:\\", "C:\\InstallLog.txt"}, true},
        {{0x410, 0x20, 1, folder, file}, false},
        {{0x10, 0x420, 1, folder, file}, false},
        {{0x10, 0x20, 2, folder, file}, false},
        {{0x10, 0x20, 1, folder, "\\\\?\\C:\\Windows\\InstallLog.txt"}, false},
        {{0x10, 0x20, 1, folder, ""}, false},
    };
    for (const auto& row : table) {
        EXPECT_EQ(mayAppendToLog(row.facts), row.allowed)
            << std::hex << row.facts.folderAttributes << ' ' << row.facts.fileAttributes << ' '
            << row.facts.fileLinks << ' ' << row.facts.filePath;
    }
}
