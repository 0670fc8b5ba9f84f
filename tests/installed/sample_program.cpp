// Stands in for an uninstaller, and with its version resource for an analyser: appends its file
// name to "runs.txt" beside it and ends.
#include <windows.h>

#include <string>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    char buffer[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, buffer, MAX_PATH);
    const std::string path = buffer;
    const std::size_t name = path.rfind('\\') + 1;
    const HANDLE file = CreateFileA((path.substr(0, name) + "runs.txt").c_str(), FILE_APPEND_DATA,
                                    0, nullptr, OPEN_ALWAYS, 0, nullptr);
    const std::string line = path.substr(name) + '\n';
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(file);
    return 0;
}
