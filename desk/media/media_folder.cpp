#include "desk/media/media_folder.h"

#include <algorithm>

#include "desk/executables/executable.h"
#include "desk/executables/stamp_image.h"
#include "desk/refusal.h"
#include "desk/whole_file.h"
#include "platform/ansi_text.h"

namespace fs = std::filesystem;

namespace {

bool isExecutable(const fs::path& path) {
    return equalIgnoringCase(path.extension().string(), ".exe");
}

}  // namespace

std::string damageOf(const fs::path& file, const FileSummary& summary) {
    return summary.size == 0    ? "it is empty"
           : isExecutable(file) ? Executable(summary).damage()
                                : "";
}

std::optional<fs::path> findInFolder(const fs::path& folder, const std::string& name) {
    std::error_code error;
    std::optional<fs::path> found;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string own = entry.path().filename().string();
        if (own == name) {
            return entry.path();
        }
        if (equalIgnoringCase(own, name)) {
            found = entry.path();
        }
    }
    return found;
}

std::string damageOf(const fs::path& file) {
    try {
        return damageOf(file, summarize(file.string()));
    } catch (const Refusal& reason) {
        return reason.what();
    }
}

fs::path findInstaller(const fs::path& folder) {
    if (const std::optional<fs::path> path = findInFolder(folder, "Install.exe")) {
        return *path;
    }
    std::vector<fs::path> found;
    std::error_code failure;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failure)) {
        std::error_code ignored;
        std::string code, name;
        if (isExecutable(entry.path()) && entry.file_size(ignored) <= largestInstaller &&
            readStamp(readWholeFile(entry.path().string()).value_or(""), code, name)) {
            found.push_back(entry.path());
        }
    }
    if (found.size() != 1) {
        throw Refusal(failure         ? "The folder cannot be read: " + failure.message() + "."
                      : found.empty() ? "There is no stamped installer."
                                      : "There is more than one stamped installer.");
    }
    return found.front();
}

std::vector<fs::path> entriesIn(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code failure;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failure)) {
        entries.push_back(entry.path());
    }
    if (failure) {
        throw Refusal("\"" + folder.string() + "\" cannot be read: " + failure.message() + '.');
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}
