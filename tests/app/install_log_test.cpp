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
