// A stand-in for the programs that the installer starts, copied under any name. To the file that
// the environment variable RECORD_FILE names it appends, at its start, the lines
//   "own path" parameters
//   in CURRENT FOLDER, shown SHOW MODE
// and at its end a line "end"; its exit code is 1, as of a program that failed. In between it does
// what the lines of "<own path>.script", if there is one, say:
//   NUMBER         waits so many milliseconds
//   FROM <tab> TO  copies a file, folders made
//   PATH           waits, at most two minutes, until that file is gone
#include <windows.h>

#include <shlobj.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

constexpr DWORD deadline = 120000, pollInterval = 10;  // milliseconds

void record(const std::string& lines) {
    const HANDLE file = CreateFileA(std::getenv("RECORD_FILE"), FILE_APPEND_DATA,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::string text = lines + '\n';
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

void follow(const std::string& line) {
    const size_t tab = line.find('\t');
    if (tab != std::string::npos) {
        const std::string to = line.substr(tab + 1);
        SHCreateDirectoryExA(nullptr, to.substr(0, to.rfind('\\')).c_str(), nullptr);
        CopyFileA(line.substr(0, tab).c_str(), to.c_str(), FALSE);
    } else if (std::isdigit(static_cast<unsigned char>(line[0])) != 0) {
        Sleep(static_cast<DWORD>(std::atoi(line.c_str())));
    } else {
        const DWORD start = GetTickCount();
        while (GetFileAttributesA(line.c_str()) != INVALID_FILE_ATTRIBUTES &&
               GetTickCount() - start < deadline) {
            Sleep(pollInterval);
        }
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR parameters, int showMode) {
    char path[1024] = "", folder[1024] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    GetCurrentDirectoryA(sizeof folder, folder);
    record('"' + std::string(path) + '"' + (*parameters == '\0' ? "" : " ") + parameters + "\nin " +
           folder + ", shown " + std::to_string(showMode));
    std::ifstream script(std::string(path) + ".script", std::ios::binary);
    for (std::string line; std::getline(script, line);) {
        follow(line);
    }
    record("end");
    return 1;
}
