// The policy on the releases that Wine can report for a program.
#include <gtest/gtest.h>

#include "tests/end_to_end/hand_over.h"
#include "tests/end_to_end/registry_fixture.h"

namespace {

TEST(OperatingSystem, EveryReportedReleaseMeetsItsPolicy) {
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr) {
        GTEST_SKIP() << "Windows reports no other release than its own";
    }
    constexpr const char* refused = "";
    constexpr const char* passed = nullptr;
    // Version 5.2 is the 64-bit XP wherever the processor is a 64-bit one. This Wine has the
    // product types of win7 and win2008r2 the wrong way round.
    const char* version52 = on64BitWindows() ? passed : "Windows Server 2003 Service Pack 2";
    const struct {
        const char* release;
        const char* asksAbout;
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
    const HandOver expected{"0q", "Halvick Tavlink Universal Analyzer"};
    for (const auto& row : table) {
        SCOPED_TRACE(row.release);
        RegistryFixture registry;
        registry.set(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe", "Version",
                     row.release);
        if (row.asksAbout == refused) {
            const Media media;
            InstallerRun run = start(media, media.installer("0q"));
            answer(run,
                   {applicationName,
                    "This product is only supported on Windows 7 and Windows 8 operating systems.",
                    warningIcon, "OK"},
                   "OK");
            EXPECT_FALSE(run.nextDialog());
            continue;
        }
        for (const char* reply : {"Yes", "No"}) {
            const Media media;
            InstallerRun run = start(media, media.installer("0q"));
            if (row.asksAbout != passed) {
                answer(run,
                       {applicationName,
                        "This product has not been tested on " + std::string(row.asksAbout) +
                            ".\n\nWould you like to continue the installation?",
                        warningIcon, "Yes No"},
                       reply);
                if (std::string(reply) == "No") {
                    expectStarted(run, media, {});
                    break;
                }
            }
            choose(run, "Live Product");
            expectStarted(run, media, {setup(media, expected)});
            if (row.asksAbout == passed) {
                break;
            }
        }
    }
}

}  // namespace
