#include "ui/html_help_win.h"

#include <htmlhelp.h>

#include "platform/ansi_text.h"
#include "platform/registry_key_win.h"
#include "platform/system_library_win.h"
#include "ui/html_help.h"

namespace {

/// Ordinal of HtmlHelpA in the control (htmlhelp.h, ATOM_HTMLHELP_API_ANSI).
constexpr WORD htmlHelpOrdinal = 14;

constexpr const char* controlKey =
    "Software\\Classes\\CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr const char* variablesKey =
    "SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";

/// A value that only administrators can write, and its type; empty when it is missing, no text or
/// of MAX_PATH bytes or more.
std::string machineText(const char* keyPath, const char* name, DWORD& type) {
    RegistryKey key;
    char text[MAX_PATH];
    DWORD size = sizeof text;
    return key.open(HKEY_LOCAL_MACHINE, keyPath, KEY_QUERY_VALUE) == ERROR_SUCCESS &&
                   readStringValue(key, name, text, size, &type) == ERROR_SUCCESS
               ? text
               : "";
}

/// A variable of the machine's environment, not of the process's: there any program may have set
/// one for the user. Empty when there is none.
std::string machineVariable(const std::string& name) {
    if (equalIgnoringCase(name, "SystemRoot") || equalIgnoringCase(name, "windir")) {
        char folder[MAX_PATH] = "";
        return GetSystemWindowsDirectoryA(folder, sizeof folder) < sizeof folder ? folder : "";
    }
    DWORD type = REG_NONE;
    const std::string variable = machineText(variablesKey, name.c_str(), type);
    return type == REG_SZ ? variable : std::string();
}

/// As registered in the machine's half of the classes, else the system's: HKEY_CLASSES_ROOT puts
/// the user's half, where any program may write, before it.
HMODULE loadControl() {
    DWORD type = REG_NONE;
    const std::string registered = machineText(controlKey, nullptr, type);
    const std::string path = registeredControlPath(type, registered, machineVariable);
    const HMODULE control = path.empty() ? nullptr : loadLibrary(path);
    return control != nullptr ? control : loadSystemLibrary("hhctrl.ocx");
}

}  // namespace

HtmlHelpControl::~HtmlHelpControl() {
    if (entryPoint && *entryPoint != nullptr) {
        (*entryPoint)(nullptr, nullptr, HH_CLOSE_ALL, 0);
    }
}

void HtmlHelpControl::displayTopic(HWND owner, const std::string& file) {
    if (!entryPoint) {
        entryPoint = procedureAddress<EntryPoint>(loadControl(), MAKEINTRESOURCEA(htmlHelpOrdinal));
    }
    if (*entryPoint != nullptr) {
        (*entryPoint)(owner, file.c_str(), HH_DISPLAY_TOPIC, 0);
    }
}
