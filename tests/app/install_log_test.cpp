#include "app/install_log.h"

#include "tests/rows.h"

TEST(InstallLogFacts, AllowOnlyThePlainFileInThePlainFolder) {
    constexpr std::uint32_t directory = 0x10, archive = 0x20, link = 0x400;
    const std::string folder = "\\\\?\\C:\\documents\\ours", file = folder + "\\installlog.TXT";
    expectRows<InstallLogFacts, bool>(
        {{{directory, archive, 1, folder, file}, true},
         {{directory, archive, 1, "", ""}, true},
         {{directory, archive, 1, "C:\\", "C:\\InstallLog.txt"}, true},
         {{directory | link, archive, 1, folder, file}, false},
         {{directory, archive | link, 1, folder, file}, false},
         {{directory, archive, 2, folder, file}, false},
         {{directory, archive, 1, folder, "\\\\?\\C:\\Windows\\InstallLog.txt"}, false},
         {{directory, archive, 1, folder, ""}, false}},
        mayAppendToLog);
}

TEST(InstallLog, TellsTheTimeInBothForms) {
    const auto timestamp = [](const SystemTime& time, bool readable) {
        std::string text = "old";
        FormatTimestamp(time, text, readable, '#');
        return text;
    };
    const SystemTime night{2026, 11, 24, 0, 59, 9};
    EXPECT_EQ(timestamp(night, true), "2026-11-24 00:59:09");
    EXPECT_EQ(timestamp(night, false), "#20261124005909");
    EXPECT_EQ(timestamp({7, 1, 1, 1, 1, 1}, true), "   7-01-01 01:01:01");
    EXPECT_EQ(timestamp({65535, 65535, 65535, 65535, 65535, 65535}, true),
              "65535-65535-65535 65535:65535:65");
}
