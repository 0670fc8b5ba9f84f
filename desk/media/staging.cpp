#include "desk/media/staging.h"

#include <csignal>
#include <random>
#include <string>
#include <system_error>

#include "desk/refusal.h"

namespace fs = std::filesystem;

namespace {

fs::path besidePath(fs::path target) {
    if (!target.has_filename()) {  // "out/"
        target = target.parent_path();
    }
    return target += ".new." + std::to_string(std::random_device()());
}

volatile std::sig_atomic_t isAskedToEnd = 0;

extern "C" void noteThatEndIsAsked(int) {
    isAskedToEnd = 1;
}

[[noreturn]] void refuse(const fs::path& path, const char* what, const std::error_code& failure) {
    throw Refusal("\"" + path.string() + "\" cannot be " + what + ": " + failure.message() + '.');
}

}  // namespace

StagingFolder::StagingFolder(const fs::path& target) : folder(besidePath(target)) {
    std::signal(SIGINT, noteThatEndIsAsked);
    std::signal(SIGTERM, noteThatEndIsAsked);
    makeFolder(folder);
}

StagingFolder::~StagingFolder() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

void StagingFolder::put(const fs::path& made, const fs::path& target) {
    const fs::path old = folder / "replaced";
    std::error_code failure;
    if (fs::exists(target)) {
        fs::rename(target, old, failure);
        if (failure) {
            refuse(target, "replaced", failure);
        }
    }
    fs::rename(made, target, failure);
    if (failure) {
        std::error_code ignored;
        fs::rename(old, target, ignored);
        refuse(target, "made", failure);
    }
    fs::remove_all(old, failure);
}

void stopWhenAsked() {
    if (isAskedToEnd != 0) {
        throw Refusal("The run was broken off; what was half made is removed again.");
    }
}

void makeFolder(const fs::path& folder) {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        refuse(folder, "made", failure);
    }
}
