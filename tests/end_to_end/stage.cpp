#include "tests/end_to_end/stage.h"

#include <gtest/gtest.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr const char* recordFile = "C:\\end to end\\records.txt";

void copyFile(const std::string& from, const std::string& to) {
    EXPECT_TRUE(CopyFileA(from.c_str(), to.c_str(), FALSE)) << from << " to " << to;
}

std::string upTo(const std::string& path, char last) {
    return path.substr(0, path.rfind(last));
}

}  // namespace

Step box(const std::string& text, const std::string& icon, const std::string& buttons,
         const std::string& reply) {
    return {"Tavlink Installation | " + icon + " | " + text + " | " + buttons, {reply}};
}

Step choose(const std::string& choice) {
    return {"* | Install | Cancel | Help", {choice, "Install"}};
}

bool on64BitWindows() {
    BOOL answer = FALSE;
    return IsWow64Process(GetCurrentProcess(), &answer) && answer;
}

Stage::Stage(const std::string& code, const std::string& mediaName)
    : folder(scratch + mediaName + '\\'), installer(scratch + "Install.exe") {
    removeFolder(scratch);
    SetEnvironmentVariableA("RECORD_FILE", recordFile);
    layOut(path("Setup.Exe"));
    // Set by the build, as the stamping tool is a native program.
    copyFile(std::string(std::getenv("STAMPED_INSTALLERS")) + "/" + code + "/Install.exe",
             installer);
}

Stage::~Stage() {
    for (auto [root, key] : keys) {
        SHDeleteKeyA(root, key.c_str());
        while (SHDeleteEmptyKeyA(root, (key = upTo(key, '\\')).c_str()) == ERROR_SUCCESS) {
        }
    }
    removeFolder(scratch);
}

void Stage::layOut(const std::string& program, const std::string& script) const {
    SHCreateDirectoryExA(nullptr, upTo(program, '\\').c_str(), nullptr);
    layOutFile("recorder.exe", program);
    if (!script.empty()) {
        writeFile(program + ".script", script);
    }
}

void Stage::setRegistry(HKEY root, const std::string& key, const std::string& name,
                        const std::string& text) {
    SHSetValueA(root, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                static_cast<DWORD>(text.size()) + 1);
    keys.emplace_back(root, key);
}

void Stage::addInstalled(const std::string& key, const std::string& name,
                         const std::string& version, const std::string& uninstall,
                         const std::string& location) {
    const std::string entry = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + key;
    setRegistry(HKEY_LOCAL_MACHINE, entry, "DisplayName", name);
    setRegistry(HKEY_LOCAL_MACHINE, entry, "DisplayVersion", version);
    setRegistry(HKEY_LOCAL_MACHINE, entry, "UninstallString", uninstall);
    setRegistry(HKEY_LOCAL_MACHINE, entry, "InstallLocation", location);
}

void Stage::addToIndex(const std::string& key, const std::string& programFolder) {
    for (const char* name : {"Path", "Product Id", "Product Name", "Seinda", "Temp Reference"}) {
        setRegistry(HKEY_LOCAL_MACHINE, key, name, "x");
    }
    setRegistry(HKEY_LOCAL_MACHINE, key, "Program Folder", programFolder);
}

std::string Stage::ran(const std::string& program, const std::string& parameters) {
    return '"' + program + '"' + (parameters.empty() ? "" : " ") + parameters + "\nend\n";
}

std::string Stage::setup(const std::string& pid, const std::string& programFolder,
                         const std::string& type, const std::string& bitness,
                         const std::string& build) const {
    return ran(path("Setup.Exe"), "/hide_usd -build=" + build + "`-pid=" + pid +
                                      "`-pf=" + programFolder + "`-type=" + type +
                                      "`-bitness=" + bitness + "`-tmp=" + folder + '`');
}

std::string Stage::records() const {
    return readFile(recordFile);
}

void Stage::awaitRecords(const std::string& expected) const {
    for (const DWORD start = GetTickCount();
         records() != expected && GetTickCount() - start < InstallerRun::defaultDeadline;) {
        Sleep(10);
    }
    EXPECT_EQ(records(), expected);
}

void Stage::expectEnd(InstallerRun& run) {
    const auto [dialog, error] = run.nextDialog();
    EXPECT_FALSE(dialog) << "unexpected: " << dialog->description();
    EXPECT_EQ(error, "");
    EXPECT_EQ(run.awaitEnd(), "");
}

std::string Stage::arguments() const {
    return "-dir \"" + upTo(folder, '\\') + '"';
}

void Stage::run(const std::string& arguments, const Steps& steps,
                const std::string& expected) const {
    DeleteFileA(recordFile);
    InstallerRun run(installer, arguments);
    for (const Step& step : steps) {
        const auto [dialog, error] = run.nextDialog();
        ASSERT_TRUE(dialog) << "no dialog instead of " << step.seen << "; " << error;
        const std::string seen = dialog->description();
        if (step.seen.starts_with('*')) {
            ASSERT_TRUE(seen.ends_with(step.seen.substr(1))) << seen;
        } else {
            ASSERT_EQ(seen, step.seen);
        }
        for (const std::string& action : step.actions) {
            EXPECT_EQ(dialog->act(action), "");
        }
    }
    expectEnd(run);
    EXPECT_EQ(records(), expected);
}

void layOutFile(const std::string& name, const std::string& path) {
    copyFile(upTo(_pgmptr, '\\') + '\\' + name, path);
}

void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void removeFolder(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}
