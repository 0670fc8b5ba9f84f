// The policy on the releases that Wine can report for a program.
#include <gtest/gtest.h>

#include "tests/end_to_end/stage.h"

namespace {

TEST(OperatingSystem, EveryReportedReleaseMeetsItsPolicy) {
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr) {
        GTEST_SKIP() << "Windows reports no other release than its own";
    }
    const std::string refused = "refused", passed;
    // Version 5.2 is the 64-bit XP wherever the processor is a 64-bit one. This Wine has the
    // product types of win7 and win2008r2 the wrong way round.
    const std::string version52 = on64BitWindows() ? passed : "Windows Server 2003 Service Pack 2";
    const struct {
        const char* release;
        std::string asksAbout;
    } table[] = {
        {"win95", refused},
        {"win98", refused},
        {"winme", refused},
        {"nt351", refused},
        {"nt40", refused},
        {"win2k", "Windows 2000 Service Pack 4"},
        {"winxp", passed},
        {"winxp64", version52},
        {"win2003", version52},
        {"vista", passed},
        {"win2008", "Windows Server 2008 Service Pack 2"},
        {"win7", "Windows Server 2008 R2 Service Pack 1"},
        {"win2008r2", passed},
        {"win8", passed},
        {"win81", passed},
        {"win10", passed},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.release);
        Stage stage("0q");
        stage.setRegistry(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe", "Version",
                          row.release);
        const std::string handOver = stage.setup("0q", "Halvick Tavlink Universal Analyzer");
        const auto question = [&row](const char* reply) {
            return box("This product has not been tested on " + row.asksAbout +
                           ".\n\nWould you like to continue the installation?",
                       "warning", "Yes | No", reply);
        };
        if (row.asksAbout == refused) {
            stage.run({box("This product is only supported on Windows 7 and Windows 8 operating "
                           "systems.",
                           "warning")},
                      "");
        } else if (row.asksAbout == passed) {
            stage.run({chooseLive}, handOver);
        } else {
            stage.run({question("No")}, "");
            stage.run({question("Yes"), chooseLive}, handOver);
        }
    }
}

}  // namespace
