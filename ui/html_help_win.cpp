#include "ui/html_help_win.h"

#include <htmlhelp.h>

#include "platform/ansi_text.h"
#include "platform/system_library_win.h"

namespace {

/// Ordinal of HtmlHelpA in the control (htmlhelp.h, ATOM_HTMLHELP_API_ANSI).
constexpr WORD htmlHelpOrdinal = 14;

/// The path in the control's registration; empty when there is none.
std::string registeredPath() {
    HKEY key;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT,
                      "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32", 0,
                      KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
        return {};
    }
    // One byte more than is read: a value in the registry need not be terminated.
    char value[MAX_PATH + 1]{};
    DWORD size = MAX_PATH;
    DWORD type = REG_NONE;
    const LONG status =
        RegQueryValueExA(key, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(value), &size);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS) {
        return {};
    }
    if (type == REG_SZ) {
        return value;
    }
    char expanded[MAX_PATH];
    if (type != REG_EXPAND_SZ ||
        ExpandEnvironmentStringsA(value, expanded, sizeof expanded) > sizeof expanded) {
        return {};
    }
    return expanded;
}

HMODULE loadControl() {
    const std::string path = registeredPath();
    // A bare name would be looked for beside the installer first, where anybody may have put one.
    if (findLastBackslash(path) != std::string::npos) {
        if (const HMODULE control = LoadLibraryA(path.c_str())) {
            return control;
        }
    }
    return loadSystemLibrary("hhctrl.ocx");
}

}  // namespace

HtmlHelpControl::EntryPoint HtmlHelpControl::load() {
    return procedureAddress<EntryPoint>(loadControl(), MAKEINTRESOURCEA(htmlHelpOrdinal));
}

void HtmlHelpControl::displayTopic(HWND owner, const std::string& file) {
    if (!tried) {
        tried = true;
        entryPoint = load();
    }
    if (entryPoint != nullptr) {
        entryPoint(owner, file.c_str(), HH_DISPLAY_TOPIC, 0);
    }
}
