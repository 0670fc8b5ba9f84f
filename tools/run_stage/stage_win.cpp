#include "tools/run_stage/stage_win.h"

#include <gtest/gtest.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "app/environment.h"
#include "platform/ansi_text.h"
#include "platform/files_win.h"
#include "platform/handle_win.h"
#include "platform/operating_system_win.h"
#include "platform/system_library_win.h"
#include "tools/dialog_driver/installer_run_win.h"
#include "tools/run_stage/systems_win.h"

namespace {

const std::string ownInstaller = scratch + "Install.exe", recordFile = scratch + "records.txt";
const std::string installerRuns = scratch + "the installer runs";  ///< a file
std::string installer;  ///< which one the present row runs

std::string upTo(const std::string& path, char last) {
    return path.substr(0, path.rfind(last));
}

/// The steps of a row, behind what the installer asks on this release unless they are about that.
std::vector<Step> withQuestionAboutRelease(std::vector<Step> steps) {
    const OperatingSystemIdentity identity = identifyOperatingSystem(queryOperatingSystem());
    const auto message = environmentPolicy(identity.code, identity.name).message;
    if (message && (steps.empty() || steps[0].seen.find("tested on") == std::string::npos)) {
        steps.insert(steps.begin(), box(message->text, "warning", "Yes | No", "Yes"));
        steps[0].kind = Step::Kind::DialogOfSomePlatforms;
    }
    return steps;
}

/// As a folder of more than 247 characters, and a file of more than 259, have to be named.
std::string longPath(const std::string& path) {
    return "\\\\?\\" + path;
}

/// A run as it is seen from outside, beside what is expected of it.
class Playback {
  public:
    explicit Playback(const std::vector<std::string>& arguments)
        : run(installer, arguments, elsewhere) {}

    /// False: the run is not what it should be, and is not to be followed any further.
    bool meet(const Step& step) {
        if (step.kind == Step::Kind::WaitForFile) {
            return waitsFor(step.seen);
        }
        if (step.kind == Step::Kind::Unseen) {
            return true;
        }
        if (step.kind == Step::Kind::Program) {
            expected += step.seen;
            step.meanwhile();
            return true;
        }
        lookOut();
        if (!fits(step, shown) && step.kind == Step::Kind::DialogOfSomePlatforms) {
            return true;
        }
        expected += step.seen + '\n';
        takeRecords();
        seen += (fits(step, shown) ? step.seen : shown) + '\n';
        shown.clear();
        step.meanwhile();
        for (const std::string& action : step.actions) {
            if (seen != expected || !shown.empty()) {
                return false;
            }
            shown = dialog->act(action);
        }
        dialog.reset();
        return shown.empty();
    }

    void end(bool met) {
        if (met) {
            lookOut();
        }
        if (met && !dialog && shown.empty()) {
            DWORD exitCode = 1;
            GetExitCodeProcess(run.process.hProcess, &exitCode);
            // The installer has left "Setup.Exe" to itself.
            DeleteFileA(installerRuns.c_str());
            run.awaitEnd();
            shown = run.error + (exitCode == 0 ? "" : "exit code " + std::to_string(exitCode));
        }
        takeRecords();
        seen += shown;
    }

    [[nodiscard]] bool hangs() const { return run.hangs; }

    std::string expected, seen;

  private:
    /// For the next dialog, if that was not done yet.
    void lookOut() {
        if (!dialog && shown.empty()) {
            dialog = run.nextDialog();
            shown = dialog ? dialog->description() : run.error;
        }
    }

    void takeRecords() {
        const std::string records = readFile(recordFile);
        seen += records.substr(taken);
        taken = records.size();
    }

    bool waitsFor(const std::string& file) {
        const auto sawWhatIsExpected = [this] {
            takeRecords();
            return seen == expected;
        };
        const DWORD start = GetTickCount();
        while (!sawWhatIsExpected() && GetTickCount() - start < InstallerRun::defaultDeadline) {
            Sleep(10);
        }
        // Longer than the pause between two looks at the file.
        const bool waits =
            WaitForSingleObject(run.process.hProcess, 1500) == WAIT_TIMEOUT && sawWhatIsExpected();
        shown = waits && DeleteFileA(file.c_str()) ? "" : "does not wait for " + file;
        return waits;
    }

    InstallerRun run;
    std::optional<DialogWindow> dialog;
    std::string shown;
    size_t taken = 0;
};

void clear() {
    removeFolder(scratch);
    removeFolder(testSystemFolder);
    SHDeleteKeyA(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe");
    SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\Halvick Test Equipment");
    SHDeleteKeyA(HKEY_LOCAL_MACHINE, "Software\\HVQ");
    // 32-bit Windows XP lacks it, and a second view of the list.
    const auto deleteInView = procedureAddress<decltype(&RegDeleteKeyExA)>(
        GetModuleHandleA("advapi32.dll"), "RegDeleteKeyExA");
    for (std::string key = uninstallListKey + std::string("\\a"); key.back() <= 'h'; ++key.back()) {
        RegDeleteKeyA(HKEY_LOCAL_MACHINE, key.c_str());
        if (deleteInView != nullptr) {
            deleteInView(HKEY_LOCAL_MACHINE, key.c_str(), KEY_WOW64_64KEY, 0);
        }
    }
}

void putInstaller(const ProductIdentity& product) {
    // Set by the build, as the stamping tool is a native program. It stamps what ships alone.
    const char* const release = std::getenv("STAMPED_INSTALLERS");
    const std::string& code = product.code;
    const std::string source = release != nullptr && !code.empty()
                                   ? std::string(release) + '/' + lowerCase(code) + "/Install.exe"
                                   : std::getenv("UNSTAMPED_INSTALLER");
    std::string content = readFile(source);
    EXPECT_NE(content, "") << source;
    if (release == nullptr && !code.empty()) {
        const std::size_t block = content.find(std::string(stampMarker, sizeof stampMarker));
        content.replace(block + offsetof(StampedIdentity, productCode), code.size(), code);
        content.replace(block + offsetof(StampedIdentity, productName), product.name.size(),
                        product.name);
    }
    file(ownInstaller, content)();
    installer = ownInstaller;
}

/// After the last run.
[[maybe_unused]] const int cleaner = std::atexit(clear);

}  // namespace

System stageSystem() {
    return onWine() ? System::Wine : onReactOs() ? System::ReactOs : System::Windows;
}

bool on64BitWindows() {
    BOOL answer = FALSE;
    return IsWow64Process(GetCurrentProcess(), &answer) && answer;
}

Given file(const std::string& path, const std::string& content) {
    return [=] {
        SHCreateDirectoryExA(nullptr, upTo(path, '\\').c_str(), nullptr);
        std::ofstream(path, std::ios::binary) << content;
    };
}

Given removed(const std::string& path) {
    return [=] { EXPECT_TRUE(DeleteFileA(path.c_str())) << path; };
}

Given copied(const std::string& name, const std::string& path) {
    return [=] {
        const std::string source = upTo(_pgmptr, '\\') + '\\' + name, folder = upTo(path, '\\');
        SHCreateDirectoryExA(nullptr, folder.c_str(), nullptr);
        CreateDirectoryA(longPath(folder).c_str(), nullptr);
        EXPECT_TRUE(CopyFileA(source.c_str(), longPath(path).c_str(), FALSE))
            << source << " to " << path;
    };
}

Given program(const std::string& path, const std::string& script) {
    return [=] {
        copied("recorder.exe", path)();
        file(path + ".script", script)();
    };
}

Given extractionTool(const std::string& report) {
    const std::string packed = scratch + "driver installer.exe", written = scratch + "report";
    return [=] {
        file(written, report)();
        copied("recorder.exe", packed)();
        file(unpacked + ".script", "100")();
        program(media + "flatten.exe",
                written + '\t' + media + "report.txt\n" + packed + '\t' + unpacked + "\n100")();
    };
}

Given running(const std::string& path, std::vector<HANDLE>& processes) {
    return [=, &processes] {
        program(path, "60000")();
        DeleteFileA(recordFile.c_str());
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &process));
        CloseHandle(process.hThread);
        processes.push_back(process.hProcess);
        while (readFile(recordFile).empty() &&
               WaitForSingleObject(process.hProcess, 10) == WAIT_TIMEOUT) {
        }
    };
}

Given installerAt(const std::string& path) {
    return [=] { installer = path; };
}

Given registeredBelow(HKEY root, const std::string& key, const std::string& name,
                      const std::string& text, REGSAM view) {
    return [=] {
        RegistryHandle opened;
        RegCreateKeyExA(root, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE | view, nullptr,
                        opened.receive(), nullptr);
        RegSetValueExA(opened.get(), name.c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>(text.size()) + 1);
    };
}

Given registered(const std::string& key, const std::string& name, const std::string& text) {
    return registeredBelow(HKEY_LOCAL_MACHINE, key, name, text);
}

Given release(const std::string& name) {
    return registeredBelow(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe", "Version",
                           name);
}

void clearStage(const ProductIdentity& product) {
    SetEnvironmentVariableA("RECORD_FILE", recordFile.c_str());
    clear();
    putInstaller(product);
}

Performance perform(const Case& row) {
    DeleteFileA(recordFile.c_str());
    file(installerRuns)();
    const std::vector<Step> steps = withQuestionAboutRelease(row.steps);
    Playback playback(row.arguments);
    playback.end(std::all_of(steps.begin(), steps.end(),
                             [&](const Step& step) { return playback.meet(step); }));
    return {playback.expected, playback.seen, playback.hangs()};
}

std::string readFile(const std::string& path) {
    return readFileContent(path).value_or("");
}

void removeFolder(const std::string& path) {
    const DWORD start = GetTickCount();
    std::error_code error;
    do {
        std::filesystem::remove_all(longPath(path), error);
    } while (error && GetTickCount() - start < InstallerRun::defaultDeadline && (Sleep(50), true));
}
