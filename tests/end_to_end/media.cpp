#include "tests/end_to_end/media.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace {

std::string recordFile(const std::string& scratch) {
    return scratch + "records.txt";
}

/// Behind the program's name, quoted or not, and one blank.
std::string parametersOf(const std::string& commandLine) {
    const size_t end =
        commandLine.starts_with('"') ? commandLine.find('"', 1) + 1 : commandLine.find(' ');
    return end + 1 < commandLine.size() ? commandLine.substr(end + 1) : "";
}

void copyFile(const std::string& from, const std::string& to) {
    EXPECT_TRUE(CopyFileA(from.c_str(), to.c_str(), FALSE)) << from << " to " << to;
}

std::string ownFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    return std::string(path).substr(0, std::string(path).rfind('\\') + 1);
}

}  // namespace

Media::Media(const std::string& folderName)
    : scratch("C:\\end to end\\"), folder(scratch + folderName + '\\') {
    removeFolder(scratch);
    SetEnvironmentVariableA("RECORD_FILE", recordFile(scratch).c_str());
    layOutStandIn(path("Setup.Exe"));
}

Media::~Media() {
    removeFolder(scratch);
}

std::string Media::installer(const std::string& code, const std::string& name) const {
    // Set by the build, as the stamping tool is a native program.
    copyFile(std::string(std::getenv("STAMPED_INSTALLERS")) + "/" + code + "/Install.exe",
             path(name));
    return path(name);
}

std::vector<Record> Media::records() const {
    std::vector<Record> records;
    std::map<std::string, size_t> running;  // by process id
    std::istringstream lines(readFile(recordFile(scratch)));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string event, process, time;
        std::getline(words, event, '\t');
        std::getline(words, process, '\t');
        std::getline(words, time, '\t');
        if (event == "start") {
            Record record{.started = std::atoll(time.c_str())};
            std::getline(words, record.program, '\t');
            std::string commandLine;
            std::getline(words, commandLine);
            record.parameters = parametersOf(commandLine);
            running[process] = records.size();
            records.push_back(record);
        } else {
            records.at(running.at(process)).ended = std::atoll(time.c_str());
        }
    }
    return records;
}

std::vector<std::string> Media::started() const {
    std::vector<std::string> started;
    for (const Record& record : records()) {
        started.push_back(record.program +
                          (record.parameters.empty() ? "" : ' ' + record.parameters));
    }
    return started;
}

void Media::awaitRecords(size_t count) const {
    const DWORD start = GetTickCount();
    while (records().size() < count) {
        ASSERT_LT(GetTickCount() - start, 20000u) << "not " << count << " programs were started";
        Sleep(10);
    }
}

void Media::forgetRecords() const {
    DeleteFileA(recordFile(scratch).c_str());
}

void makeFolder(const std::string& path) {
    for (size_t end = path.find('\\', 3); end != std::string::npos;
         end = path.find('\\', end + 1)) {
        CreateDirectoryA(path.substr(0, end).c_str(), nullptr);
    }
    CreateDirectoryA(path.c_str(), nullptr);
}

void removeFolder(const std::string& path) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((path + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::string name = found.cFileName;
        if (name == "." || name == "..") {
            continue;
        }
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            removeFolder(path + '\\' + name);
        } else {
            DeleteFileA((path + '\\' + name).c_str());
        }
    } while (FindNextFileA(search, &found));
    FindClose(search);
    RemoveDirectoryA(path.c_str());
}

void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool fileExists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void layOutFile(const std::string& name, const std::string& path) {
    makeFolder(path.substr(0, path.rfind('\\')));
    copyFile(ownFolder() + name, path);
}

void layOutStandIn(const std::string& path, const std::string& script) {
    layOutFile("recorder.exe", path);
    if (!script.empty()) {
        writeFile(path + ".script", script);
    }
}
