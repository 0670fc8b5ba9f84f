// A stand-in for the programs that the installer starts, copied under any name. To the file that
// the environment variable RECORD_FILE names it appends, at its start, a line
//   "own path" parameters
// and at its end a line "end". In between it does what the lines of "<own path>.script", if there
// is one, say: a number waits so many milliseconds, FROM <tab> TO copies a file, folders made.
#include <windows.h>

#include <shlobj.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace {

void record(const std::string& line) {
    const HANDLE file = CreateFileA(std::getenv("RECORD_FILE"), FILE_APPEND_DATA,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, (line + '\n').data(), static_cast<DWORD>(line.size() + 1), &written, nullptr);
    CloseHandle(file);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR parameters, int) {
    char path[1024] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    record('"' + std::string(path) + '"' + (*parameters == '\0' ? "" : " ") + parameters);
    std::ifstream script(std::string(path) + ".script", std::ios::binary);
    for (std::string line; std::getline(script, line);) {
        const size_t tab = line.find('\t');
        if (tab == std::string::npos) {
            Sleep(static_cast<DWORD>(std::atoi(line.c_str())));
            continue;
        }
        const std::string to = line.substr(tab + 1);
        SHCreateDirectoryExA(nullptr, to.substr(0, to.rfind('\\')).c_str(), nullptr);
        CopyFileA(line.substr(0, tab).c_str(), to.c_str(), FALSE);
    }
    record("end");
    return 0;
}
