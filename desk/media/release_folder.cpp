#include "desk/media/release_folder.h"

#include <filesystem>

#include "desk/refusal.h"
#include "platform/ansi_text.h"

namespace fs = std::filesystem;

std::string folderOf(const std::string& code) {
    return lowerCase(code);
}

std::string releasedPath(const std::string& code) {
    return folderOf(code) + '/' + installerFile;
}

void requireReplaceable(const std::string& folder) {
    std::error_code failure;
    if (!fs::exists(fs::symlink_status(folder, failure))) {
        return;
    }
    if (!fs::is_directory(folder, failure)) {
        throw Refusal("\"" + folder + "\" is no folder; name another.");
    }
    const bool empty = fs::is_empty(folder, failure);
    if (failure) {
        throw Refusal("\"" + folder + "\" cannot be read: " + failure.message() + '.');
    }
    if (!empty && !fs::exists(fs::path(folder) / checksumsFile)) {
        throw Refusal("\"" + folder +
                      "\" holds something else than a release, which is left alone; name another "
                      "folder.");
    }
}
