// The policy on the releases that Wine can report for a program, and what depends on the release or
// on the processor after it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "tests/end_to_end/extraction.h"

namespace {

/// A row of docs/release-matrix.md; from the records, what was started.
std::string matrixRow(const std::string& release, const std::string& policy,
                      const std::string& records) {
    const auto found = [&records](const std::string& start, char end) {
        const size_t at = records.find(start);
        return at == std::string::npos ? "" : records.substr(at, records.find(end, at) - at);
    };
    const std::string bitness = found("-bitness=", '`');
    return "| " + release + " | " + policy + " | " + bitness.substr(bitness.find('=') + 1) + " | " +
           found("dpinst_", '"') + " |\n";
}

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
        {"win20", refused},
        {"win30", refused},
        {"win31", refused},
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
    const std::string processor = on64BitWindows() ? "x64" : "x86";
    // Set by the script that writes the document.
    const char* matrix = std::getenv("RELEASE_MATRIX");
    for (const auto& row : table) {
        SCOPED_TRACE(row.release);
        // A product that has drivers, and a setup for each processor.
        Stage stage("1m");
        layOutExtraction(stage);
        stage.setRegistry(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe", "Version",
                          row.release);
        const std::string handOver =
            (row.release == std::string("win2k")
                 ? ""  // the drivers do not run there
                 : extraction(stage, "SerialTavlinkDrivers.fzx") + Stage::ran(unpacked)) +
            stage.setup("1m", "Halvick Tavlink Industrial Analyzer 16.4.10002.0",
                        "LIVE " + processor, processor);
        const auto question = [&row](const char* reply) {
            return box("This product has not been tested on " + row.asksAbout +
                           ".\n\nWould you like to continue the installation?",
                       "warning", "Yes | No", reply);
        };
        std::string policy;
        if (row.asksAbout == refused) {
            policy = "refuses";
            stage.run({box("This product is only supported on Windows 7 and Windows 8 operating "
                           "systems.",
                           "warning")},
                      "");
        } else if (row.asksAbout == passed) {
            policy = "passes";
            stage.run({chooseLive}, handOver);
        } else {
            policy = "asks about \"" + row.asksAbout + '"';
            stage.run({question("No")}, "");
            stage.run({question("Yes"), chooseLive}, handOver);
        }
        if (matrix != nullptr) {
            std::ofstream(matrix + processor, std::ios::app | std::ios::binary)
                << matrixRow(row.release, policy, stage.records());
        }
        removeFolder(testSystemFolder);
    }
}

}  // namespace
