#include <gtest/gtest.h>

#include "tests/end_to_end/hand_over.h"
#include "tests/end_to_end/registry_fixture.h"

namespace {

std::string testSystemFolder() {
    return std::string("C:\\Program Files") + (on64BitWindows() ? " (x86)" : "") +
           "\\Halvick Test System II";
}

/// This Windows' driver installer.
std::string driverInstaller() {
    return on64BitWindows() ? "dpinst_64.exe" : "dpinst_32.exe";
}

class Drivers : public testing::Test {
  protected:
    ~Drivers() override { removeFolder(testSystemFolder()); }

    /// An extraction tool that reports this and unpacks a driver installer into a subfolder.
    void layOutExtraction(const std::string& report) {
        writeFile(media.path("report.source"), report);
        layOutStandIn(media.path("flatten.exe"),
                      "copy\t" + media.path("report.source") + "\t" + media.path("report.txt") +
                          "\ncopy\t" + media.path("Setup.Exe") + "\t" + unpacked() + "\nwait\t100");
    }
    std::string unpacked() const {
        return testSystemFolder() + "\\Drivers\\sub folder\\" + driverInstaller();
    }
    std::string extraction(const std::string& archive) const {
        return media.path("flatten.exe") + " -fzx \"" + media.path(archive) +
               "\" -fzxkey Kq7vR2mXp9Lz4Wc1 -rep \"" + media.path("report.txt") + "\" -exdir \"" +
               testSystemFolder() + "\\Drivers\"";
    }

    Media media{"media with blanks"};
    const std::string goodReport =
        "unpacked \"sub folder\\dpinst_32.exe\" and \"sub folder\\dpinst_64.exe\"\r\n";
};

TEST_F(Drivers, OfEachFamilyAreInstalledBeforeTheHandOver) {
    const std::string processor = on64BitWindows() ? "x64" : "x86";
    const struct {
        const char* code;
        const char* archive;
        bool asks;
        HandOver expected;
    } table[] = {
        {"1k",
         "SerialTavlinkDrivers.fzx",
         true,
         {"1k", "Halvick Tavlink Serial Analyzer 16.4.10002.0"}},
        {"1m",
         "SerialTavlinkDrivers.fzx",
         true,
         {"1m", "Halvick Tavlink Industrial Analyzer 16.4.10002.0", "LIVE " + processor,
          processor}},
        {"1w", "CorvaneTavlinkDrivers.fzx", false, {"1w", "Halvick 16.4.10002.0", "LIVE x86"}},
    };
    layOutExtraction(goodReport);
    for (const auto& row : table) {
        SCOPED_TRACE(row.code);
        media.forgetRecords();
        InstallerRun run = start(media, media.installer(row.code));
        if (row.asks) {
            choose(run, "Live Product");
        }
        expectStarted(run, media,
                      {extraction(row.archive), unpacked(), setup(media, row.expected)});
        expectOneAfterAnother(media);
    }
}

TEST_F(Drivers, OfFurtherFamiliesEndTheRunInSilence) {
    layOutExtraction(goodReport);
    for (const char* code : {"16", "1r", "1u"}) {
        SCOPED_TRACE(code);
        InstallerRun run = start(media, media.installer(code));
        expectStarted(run, media, {});
    }
}

TEST_F(Drivers, AreLeftOutOnReleasesThatTheyDoNotRunOn) {
    RegistryFixture registry;
    registry.set(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe", "Version", "win2k");
    layOutExtraction(goodReport);
    InstallerRun run = start(media, media.installer("1w"));
    const auto question = run.nextDialog();
    ASSERT_TRUE(question);
    question->click("Yes");
    expectStarted(run, media, {setup(media, {"1w", "Halvick 16.4.10002.0", "LIVE x86"})});
}

TEST_F(Drivers, AreInstalledAsFarAsTheReportTells) {
    const std::string name = driverInstaller();
    const struct {
        const char* what;
        std::string report;
        bool installs = false;
    } table[] = {
        {"empty", ""},
        {"no name", "\"sub folder\\setup.exe\""},
        {"the other bitness",
         on64BitWindows() ? "\"sub folder\\dpinst_32.exe\"" : "\"sub folder\\dpinst_64.exe\""},
        {"capitals", on64BitWindows() ? "\"sub folder\\DPINST_64.EXE\"" : "\"DPINST_32.EXE\""},
        {"no quote in front", "sub folder\\" + name + '"'},
        {"name first", name + '"'},
        {"a file that is not there", "\"other folder\\" + name + '"'},
        {"zero bytes in front", std::string(3, '\0') + "\"sub folder\\" + name + '"', true},
        {"10 MB", std::string(10'000'000, '"') + "sub folder\\" + name, true},
        {"out of the folder", "\"..\\Drivers\\sub folder\\" + name + '"', true},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.what);
        media.forgetRecords();
        layOutExtraction(row.report);
        InstallerRun run = start(media, media.installer("1w"));
        std::vector<std::string> expected = {extraction("CorvaneTavlinkDrivers.fzx")};
        if (row.installs) {
            expected.push_back(unpacked());
        }
        expected.push_back(setup(media, {"1w", "Halvick 16.4.10002.0", "LIVE x86"}));
        expectStarted(run, media, expected);
    }
}

}  // namespace
