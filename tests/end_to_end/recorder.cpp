// A stand-in for the programs that the installer starts. Copied under any name, it appends to the
// file that the environment variable RECORD_FILE names: at its start a line
//   start <tab> process id <tab> milliseconds <tab> own path <tab> command line ("\n" for a line
//   feed)
// and at its end
//   end <tab> process id <tab> milliseconds
// In between it does what the lines of "<own path>.script", if there is one, say; the words of a
// line are separated by tabs:
//   write FILE TEXT | copy FROM TO (makes the folders) | delete FILE | wait MILLISECONDS |
//   await FILE (until it is gone) | exit CODE
#include <windows.h>

#include <shlobj.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

void record(const std::string& line) {
    char file[MAX_PATH] = "";
    GetEnvironmentVariableA("RECORD_FILE", file, sizeof file);
    const HANDLE handle =
        CreateFileA(file, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(handle, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(handle);
}

std::string stamp(const char* event) {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    const ULONGLONG ticks = (ULONGLONG{now.dwHighDateTime} << 32) + now.dwLowDateTime;
    return event + ("\t" + std::to_string(GetCurrentProcessId())) + "\t" +
           std::to_string(ticks / 10000);
}

std::string onOneLine(std::string text) {
    for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) {
        text.replace(at, 1, "\\n");
    }
    return text;
}

/// Returns the exit code.
int perform(const std::string& scriptPath) {
    std::ifstream script(scriptPath, std::ios::binary);
    for (std::string line; std::getline(script, line);) {
        std::vector<std::string> words;
        std::istringstream split(line);
        for (std::string word; std::getline(split, word, '\t');) {
            words.push_back(word);
        }
        words.resize(3);
        if (words[0] == "write") {
            std::ofstream(words[1], std::ios::binary) << words[2];
        } else if (words[0] == "copy") {
            SHCreateDirectoryExA(nullptr, words[2].substr(0, words[2].rfind('\\')).c_str(),
                                 nullptr);
            CopyFileA(words[1].c_str(), words[2].c_str(), FALSE);
        } else if (words[0] == "delete") {
            DeleteFileA(words[1].c_str());
        } else if (words[0] == "wait") {
            Sleep(static_cast<DWORD>(std::atoi(words[1].c_str())));
        } else if (words[0] == "await") {
            while (GetFileAttributesA(words[1].c_str()) != INVALID_FILE_ATTRIBUTES) {
                Sleep(10);
            }
        } else if (words[0] == "exit") {
            return std::atoi(words[1].c_str());
        }
    }
    return 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    char path[1024] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    record(stamp("start") + "\t" + path + "\t" + onOneLine(GetCommandLineA()) + "\n");
    const int exitCode = perform(std::string(path) + ".script");
    record(stamp("end") + "\n");
    return exitCode;
}
