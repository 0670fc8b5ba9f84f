#pragma once

#include <windows.h>

#include <string>

/// Registers a module as the HTML Help control, for this process only, until it goes out of scope.
class RegisteredHelp {
  public:
    RegisteredHelp(DWORD type, const std::string& path) {
        RegCreateKeyA(HKEY_CURRENT_USER, scratch, &classes);
        HKEY server;
        RegCreateKeyA(classes, "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32",
                      &server);
        RegSetValueExA(server, nullptr, 0, type, reinterpret_cast<const BYTE*>(path.c_str()),
                       static_cast<DWORD>(path.size() + 1));
        RegCloseKey(server);
        RegOverridePredefKey(HKEY_CLASSES_ROOT, classes);
    }
    ~RegisteredHelp() {
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        RegCloseKey(classes);
        const std::string parts[] = {
            "\\CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32",
            "\\CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}", "\\CLSID", ""};
        for (const std::string& part : parts) {
            RegDeleteKeyA(HKEY_CURRENT_USER, (scratch + part).c_str());
        }
    }
    RegisteredHelp(const RegisteredHelp&) = delete;
    RegisteredHelp& operator=(const RegisteredHelp&) = delete;

    /// The folder of the tests, without a backslash at the end, and the stand-in beside them.
    static std::string folder() {
        char path[MAX_PATH]{};
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        return std::string(path, std::string(path).rfind('\\'));
    }
    static std::string recorder() { return folder() + "\\help_recorder.dll"; }

  private:
    static constexpr const char* scratch = "Software\\InstallerTests.Classes";
    HKEY classes = nullptr;
};

/// A variable of the stand-in.
template <class Value>
Value& recorded(const char* name) {
    const HMODULE recorder = LoadLibraryA(RegisteredHelp::recorder().c_str());
    return *reinterpret_cast<Value*>(reinterpret_cast<void*>(GetProcAddress(recorder, name)));
}
