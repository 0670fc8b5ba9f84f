#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

/// A folder of the test's own, gone with it.
class ScratchFolder {
  public:
    ScratchFolder() { std::filesystem::create_directories(path); }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// Copies sample_program.exe, which lies beside the tests, to `name` below the folder.
    std::filesystem::path addProgram(const char* name) const {
        char tests[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, tests, MAX_PATH);
        const std::filesystem::path target = path / name;
        std::filesystem::create_directories(target.parent_path());
        std::filesystem::copy_file(
            std::filesystem::path(tests).replace_filename("sample_program.exe"), target);
        return target;
    }

    const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                       ("installer test " + std::to_string(GetCurrentProcessId()));
};
