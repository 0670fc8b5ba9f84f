// Stand-ins for the programs that the installer deals with, in a scratch folder: copies of the
// recorder, whose source describes the scripts and the records.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

class StandIns {
  public:
    StandIns() {
        char temporary[MAX_PATH] = "";
        GetTempPathA(sizeof temporary, temporary);
        folder =
            std::string(temporary) + "stand ins " + std::to_string(GetCurrentProcessId()) + '\\';
        CreateDirectoryA(folder.c_str(), nullptr);
        SetEnvironmentVariableA("RECORD_FILE", path("records").c_str());
    }
    /// Removes the files made by this object and by its stand-ins, and one level of folders.
    ~StandIns() {
        removeFiles(folder, true);
        SetEnvironmentVariableA("RECORD_FILE", nullptr);
    }
    StandIns(const StandIns&) = delete;
    StandIns& operator=(const StandIns&) = delete;

    std::string path(const std::string& name) const { return folder + name; }

    /// A program of this name ("folder\name" or "name").
    void layOut(const std::string& name, const std::string& script = "") const {
        const std::string file = path(name);
        char own[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, own, sizeof own);
        const std::string tests = std::string(own).substr(0, std::string(own).rfind('\\'));
        CreateDirectoryA(file.substr(0, file.rfind('\\')).c_str(), nullptr);
        ASSERT_TRUE(CopyFileA((tests + "\\end_to_end\\recorder.exe").c_str(), file.c_str(), FALSE));
        std::ofstream(file + ".script", std::ios::binary) << script;
    }

    /// One line per event: "start COMMAND LINE" and "end".
    std::string records() const {
        std::ifstream file(path("records"), std::ios::binary);
        std::string events;
        for (std::string line; std::getline(file, line);) {
            events += line.substr(0, line.find('\t'));
            if (line.starts_with("start")) {
                events += ' ' + line.substr(line.rfind('\t') + 1);
            }
            events += '\n';
        }
        return events;
    }

    void forgetRecords() const { DeleteFileA(path("records").c_str()); }

    std::string folder;  ///< ends in a backslash

  private:
    static void removeFiles(const std::string& in, bool folders) {
        WIN32_FIND_DATAA found;
        const HANDLE search = FindFirstFileA((in + '*').c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) {
            return;
        }
        do {
            const std::string name = found.cFileName;
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                DeleteFileA((in + name).c_str());
            } else if (folders && name != "." && name != "..") {
                removeFiles(in + name + '\\', false);
            }
        } while (FindNextFileA(search, &found));
        FindClose(search);
        RemoveDirectoryA(in.c_str());
    }
};
