// Stands in for the HTML Help control: appends its calls to the environment variable SHOWN_HELP.
#include <windows.h>

#include <htmlhelp.h>

#include <string>

extern "C" HWND WINAPI recordHelp(HWND owner, const char* file, UINT command, DWORD_PTR data) {
    char earlier[600] = "";
    GetEnvironmentVariableA("SHOWN_HELP", earlier, sizeof earlier);
    const std::string shown = command == HH_CLOSE_ALL
                                  ? "closed"
                                  : (IsWindow(owner) ? "owned " : "") + std::string(file) + ' ' +
                                        std::to_string(command) + ' ' + std::to_string(data);
    SetEnvironmentVariableA("SHOWN_HELP", (earlier + shown + ';').c_str());
    return nullptr;
}
