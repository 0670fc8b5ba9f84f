#include "tests/end_to_end/stage.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/stamped_identity.h"
#include "tools/dialog_driver/installer_run_win.h"

namespace {

const std::string recordFile = scratch + "records.txt";
const std::string installerRuns = scratch + "the installer runs";  ///< a file

std::string upTo(const std::string& path, char last) {
    return path.substr(0, path.rfind(last));
}

/// The records become these, before the deadline.
bool awaitRecords(const std::string& expected) {
    for (const DWORD start = GetTickCount();
         readFile(recordFile) != expected &&
         GetTickCount() - start < InstallerRun::defaultDeadline;) {
        Sleep(10);
    }
    return readFile(recordFile) == expected;
}

bool fits(const Step& step, const std::string& shown) {
    return step.seen.starts_with('*') ? shown.ends_with(step.seen.substr(1)) : shown == step.seen;
}

/// A run as it is seen from outside, beside what is expected of it.
class Playback {
  public:
    explicit Playback(const std::string& arguments) : run(installer, arguments, elsewhere) {}

    /// False: the run is not what it should be, and is not to be followed any further.
    bool meet(const Step& step) {
        if (step.kind == Step::Kind::Programs) {
            expected += step.seen;
            return step.marker.empty() || waitsFor(step.marker);
        }
        lookOut();
        if (!fits(step, shown) && step.kind == Step::Kind::DialogOfSomePlatforms) {
            return true;
        }
        expected += step.seen + '\n';
        takeRecords();
        if (!dialog || !fits(step, shown)) {
            return false;
        }
        seen += step.seen + '\n';
        shown.clear();
        if (seen != expected) {
            return false;
        }
        for (const std::string& action : step.actions) {
            if (shown = dialog->act(action); !shown.empty()) {
                return false;
            }
        }
        dialog.reset();
        return true;
    }

    void end() {
        lookOut();
        if (!dialog && shown.empty()) {
            DWORD exitCode = 1;
            GetExitCodeProcess(run.process.hProcess, &exitCode);
            // The installer has left "Setup.Exe" to itself.
            DeleteFileA(installerRuns.c_str());
            shown = run.awaitEnd() + (exitCode == 0 ? "" : "exit code " + std::to_string(exitCode));
        }
    }

    /// Whatever came last, to what was seen.
    void close() {
        takeRecords();
        seen += shown.empty() ? "" : shown + '\n';
    }

    std::string expected, seen;

  private:
    /// For the next dialog, if that was not done yet.
    void lookOut() {
        if (!dialog && shown.empty()) {
            const auto [next, error] = run.nextDialog();
            dialog = next;
            shown = dialog ? dialog->description() : error;
        }
    }

    void takeRecords() {
        const std::string records = readFile(recordFile);
        seen += records.substr(taken);
        taken = records.size();
    }

    bool waitsFor(const std::string& marker) {
        // Longer than the pause between two looks at the marker.
        const bool waits = awaitRecords(expected) &&
                           WaitForSingleObject(run.process.hProcess, 1500) == WAIT_TIMEOUT &&
                           readFile(recordFile) == expected;
        EXPECT_TRUE(DeleteFileA(marker.c_str()));
        return waits;
    }

    InstallerRun run;
    std::optional<DialogWindow> dialog;
    std::string shown;
    size_t taken = 0;
};

}  // namespace

bool on64BitWindows() {
    BOOL answer = FALSE;
    return IsWow64Process(GetCurrentProcess(), &answer) && answer;
}

Step box(const std::string& text, const std::string& icon, const std::string& buttons,
         const std::string& reply) {
    return {"Tavlink Installation | " + icon + " | " + text + " | " + buttons, {reply}};
}

Step choose(const std::string& choice, const std::string& button) {
    return {"* | Install | Cancel | Help", {choice, button}};
}

Step ran(const std::string& program, const std::string& parameters) {
    return {'"' + program + '"' + (parameters.empty() ? "" : " ") + parameters + "\nin " +
                upTo(elsewhere, '\\') + ", shown 1\nend\n",
            {},
            Step::Kind::Programs};
}

Step setup(const std::string& productCode, const std::string& programFolder,
           const std::string& type, const std::string& bitness, const std::string& build,
           const std::string& folder) {
    return ran(folder + "Setup.Exe", "/hide_usd -build=" + build + "`-pid=" + productCode +
                                         "`-pf=" + programFolder + "`-type=" + type +
                                         "`-bitness=" + bitness + "`-tmp=" + folder + '`');
}

Given file(const std::string& path, const std::string& content) {
    return [=](Stage&) { writeFile(path, content); };
}

Given removed(const std::string& path) {
    return [=](Stage&) { EXPECT_TRUE(DeleteFileA(path.c_str())) << path; };
}

Given program(const std::string& path, const std::string& script) {
    return [=](Stage&) {
        layOut("recorder.exe", path);
        writeFile(path + ".script", script);
    };
}

Given setupIn(const std::string& folder) {
    return program(folder + "Setup.Exe", installerRuns);
}

Given running(const std::string& path) {
    return [=](Stage& stage) {
        program(path, "60000")(stage);
        DeleteFileA(recordFile.c_str());
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_SHOWNORMAL;
        stage.copies.emplace_back();
        ASSERT_TRUE(CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                                   elsewhere.c_str(), &startup, &stage.copies.back()));
        const std::string record = ran(path).seen;
        EXPECT_TRUE(awaitRecords(record.substr(0, record.rfind("end")))) << readFile(recordFile);
    };
}

Given registered(HKEY root, const std::string& key, const std::string& name,
                 const std::string& text, REGSAM view) {
    return [=](Stage& stage) {
        HKEY opened = nullptr;
        RegCreateKeyExA(root, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE | view, nullptr, &opened,
                        nullptr);
        RegSetValueExA(opened, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>(text.size()) + 1);
        RegCloseKey(opened);
        stage.keys.emplace_back(root, key);
    };
}

Given installed(const std::string& key, const std::string& name, const std::string& uninstall,
                const std::string& location, const std::string& version, REGSAM view) {
    return [=](Stage& stage) {
        const std::pair<const char*, std::string> values[] = {{"DisplayName", name},
                                                              {"DisplayVersion", version},
                                                              {"UninstallString", uninstall},
                                                              {"InstallLocation", location}};
        for (const auto& [value, text] : values) {
            registered(HKEY_LOCAL_MACHINE,
                       "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + key, value,
                       text, view)(stage);
        }
    };
}

Given indexed(const std::string& key, const std::string& programFolder) {
    return [=](Stage& stage) {
        for (const char* name :
             {"Path", "Product Id", "Product Name", "Seinda", "Temp Reference"}) {
            registered(HKEY_LOCAL_MACHINE, key, name, scratch)(stage);
        }
        registered(HKEY_LOCAL_MACHINE, key, "Program Folder", programFolder)(stage);
    };
}

Given release(const std::string& name) {
    return registered(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe", "Version",
                      name);
}

Given stamped(const std::string& code, const std::string& name) {
    return [=](Stage&) {
        std::string image = readFile(installer);
        const std::string marker(std::begin(stampMarker), std::end(stampMarker));
        StampedIdentity identity{};
        marker.copy(identity.marker, marker.size());
        code.copy(identity.productCode, code.size());
        name.copy(identity.productName, name.size());
        image.replace(image.find(marker), sizeof identity, reinterpret_cast<char*>(&identity),
                      sizeof identity);
        writeFile(installer, image);
    };
}

Given extractionTool(const std::string& report) {
    return [=](Stage& stage) {
        writeFile(scratch + "report", report);
        layOut("recorder.exe", scratch + "driver installer.exe");
        program(media + "flatten.exe", scratch + "report\t" + media + "report.txt\n" + scratch +
                                           "driver installer.exe\t" + unpacked + "\n100")(stage);
        program(unpacked, "100")(stage);
        DeleteFileA(unpacked.c_str());
    };
}

Step extracted(const std::string& archive) {
    return ran(media + "flatten.exe",
               "-fzx \"" + media + archive + "\" -fzxkey Kq7vR2mXp9Lz4Wc1 -rep \"" + media +
                   "report.txt\" -exdir \"" + testSystemFolder + "\\Drivers\"");
}

Stage::Stage(const Case& row) {
    removeFolder(scratch);
    SetEnvironmentVariableA("RECORD_FILE", recordFile.c_str());
    setupIn(media)(*this);
    SHCreateDirectoryExA(nullptr, elsewhere.c_str(), nullptr);
    writeFile(elsewhere + "ProductData.ini", "[Version Number]\r\nVersion Number=9.9.9.9\r\n");
    // Set by the build, as the stamping tool is a native program.
    const std::string stamped =
        std::string(std::getenv("STAMPED_INSTALLERS")) + '/' + row.product + "/Install.exe";
    EXPECT_TRUE(CopyFileA(stamped.c_str(), installer.c_str(), FALSE)) << stamped;
    for (const Given& given : row.given) {
        given(*this);
    }
    DeleteFileA(recordFile.c_str());
    writeFile(installerRuns, "");
}

Stage::~Stage() {
    for (const PROCESS_INFORMATION& copy : copies) {
        TerminateProcess(copy.hProcess, 0);
        WaitForSingleObject(copy.hProcess, INFINITE);
        CloseHandle(copy.hProcess);
        CloseHandle(copy.hThread);
    }
    for (auto& [root, key] : keys) {
        for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
            std::string path = key;
            while (RegDeleteKeyExA(root, path.c_str(), view, 0) == ERROR_SUCCESS) {
                path = upTo(path, '\\');
            }
        }
    }
    removeFolder(testSystemFolder);
    removeFolder(scratch);
}

std::string play(const Case& row) {
    SCOPED_TRACE(row.what);
    Stage stage(row);
    Playback playback(row.arguments);
    if (std::all_of(row.steps.begin(), row.steps.end(),
                    [&](const Step& step) { return playback.meet(step); })) {
        playback.end();
    }
    playback.close();
    EXPECT_EQ(playback.seen, playback.expected);
    row.afterwards(stage);
    return playback.seen;
}

void play(const std::vector<Case>& rows) {
    for (const Case& row : rows) {
        play(row);
    }
}

void layOut(const std::string& name, const std::string& path) {
    SHCreateDirectoryExA(nullptr, upTo(path, '\\').c_str(), nullptr);
    const std::string source = upTo(_pgmptr, '\\') + '\\' + name;
    EXPECT_TRUE(CopyFileA(source.c_str(), path.c_str(), FALSE)) << source << " to " << path;
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

void removeFolder(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}
