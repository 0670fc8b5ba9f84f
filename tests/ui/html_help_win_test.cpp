#include "ui/html_help_win.h"

#include <cstdlib>

#include "tests/framework/modal_driver_win.h"
#include "tests/installed/scratch_machine_win.h"
#include "ui/install_dialog_win.h"

namespace {

const std::string folder = std::string(_pgmptr).substr(0, std::string(_pgmptr).rfind('\\'));
const std::string recorder = folder + "\\help_recorder.dll";

/// What help was shown since the last question.
std::string shownHelp() {
    char shown[600] = "";
    GetEnvironmentVariableA("SHOWN_HELP", shown, sizeof shown);
    SetEnvironmentVariableA("SHOWN_HELP", nullptr);
    return shown;
}

constexpr const char* registration =
    "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr const char* machineVariables =
    "SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";

void registerControl(const ScratchMachine& machine, DWORD type, const std::string& path) {
    machine.setValue(std::string("Software\\Classes\\") + registration, "", type, path + '\0');
}

TEST(HtmlHelpControl, IsTheOneThatTheMachineRegisteredElseTheSystems) {
    SetEnvironmentVariableA("HELP_FOLDER", folder.c_str());
    const std::string bareName = recorder.substr(folder.size() + 1);
    std::string detour = folder;  // a long path to the same file
    for (int step = 0; step < 32; ++step) {
        detour += "\\.";
    }
    const std::string twice = "C:\\Install.chm 0 0;C:\\Install.chm 0 0;";
    const std::tuple<DWORD, std::string, std::string> table[] = {
        {REG_SZ, detour + '\\' + bareName, twice},
        {REG_EXPAND_SZ, "%MACHINE_HELP_FOLDER%\\" + bareName, twice},
        {REG_EXPAND_SZ, "%HELP_FOLDER%\\" + bareName, ""},  // the user's variable
        {REG_SZ, folder + "\\missing.ocx", ""},
        {REG_SZ, bareName, ""}};  // would be found beside the program
    for (const auto& [type, path, shown] : table) {
        const ScratchMachine machine;
        machine.setValue(machineVariables, "MACHINE_HELP_FOLDER", REG_SZ, folder + '\0');
        registerControl(machine, type, path);
        {
            HtmlHelpControl help;
            help.displayTopic(nullptr, "C:\\Install.chm");
            help.displayTopic(nullptr, "C:\\Install.chm");
            EXPECT_EQ(shownHelp(), shown) << path;
        }
        EXPECT_EQ(shownHelp(), shown.empty() ? "" : "closed;") << path;
        EXPECT_TRUE(!shown.empty() || GetModuleHandleA("hhctrl.ocx") != nullptr) << path;
    }
}

TEST(HtmlHelpControl, IsNotTheOneThatTheUserRegistered) {
    // What a program without rights can write shows through here.
    const ScratchMachine classes(HKEY_CLASSES_ROOT);
    classes.setValue(registration, "", REG_SZ, recorder + '\0');
    HtmlHelpControl().displayTopic(nullptr, "C:\\Install.chm");
    EXPECT_EQ(shownHelp(), "");
}

TEST(HtmlHelpControl, FailureIsRemembered) {
    const ScratchMachine machine;
    registerControl(machine, REG_SZ, _pgmptr);  // loads, but has no ordinal 14
    HtmlHelpControl help;
    help.displayTopic(nullptr, "C:\\Install.chm");
    registerControl(machine, REG_SZ, recorder);
    help.displayTopic(nullptr, "C:\\Install.chm");
    EXPECT_EQ(shownHelp(), "");
}

TEST(HtmlHelpControl, IsAskedByButtonAndByF1) {
    const ScratchMachine machine;
    registerControl(machine, REG_SZ, recorder);
    CInstallDlg dialog("Sample");
    driveModal(dialog, [&](HWND window) {
        const std::string shown = "owned " + folder + "\\windows_tests.chm 0 0;";
        HELPINFO asked{};
        asked.cbSize = sizeof asked;
        EXPECT_EQ(SendMessageA(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&asked)), TRUE);
        EXPECT_EQ(shownHelp(), shown);
        SendMessageA(GetDlgItem(window, IDC_HELP_BUTTON), BM_CLICK, 0, 0);
        EXPECT_EQ(shownHelp(), shown);
    });
}

}  // namespace
