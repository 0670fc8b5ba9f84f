#include "desk/media/media_folder.h"

#include <algorithm>

#include "desk/executables/executable.h"
#include "desk/executables/stamp_image.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "platform/ansi_text.h"

namespace fs = std::filesystem;

namespace {

bool isExecutable(const fs::path& path) {
    return equalIgnoringCase(path.extension().string(), ".exe");
}

/// Far more than an installer has: what is larger is not looked into.
constexpr std::uintmax_t largestInstaller = 32 << 20;

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

FileState fileState(const fs::path& folder, const std::string& name) {
    const std::optional<fs::path> path = findInFolder(folder, name);
    if (!path) {
        return {};
    }
    try {
        return {true, damageOf(*path, summarize(path->string()))};
    } catch (const Refusal& reason) {
        return {true, reason.what()};
    }
}

Media mediaOf(const fs::path& installer, const fs::path& folder, const std::string& directory) {
    std::string content = readInput(installer.string());
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        throw Refusal("\"" + folder.string() + "\" is not a folder.");
    }
    const fs::path ownFolder = fs::absolute(installer).parent_path();
    Media media;
    media.installer = std::move(content);
    media.besideInstaller = [ownFolder](const std::string& name) {
        const std::optional<fs::path> path = findInFolder(ownFolder, name);
        return path ? NamedFile{true, readWholeFile(path->string())} : NamedFile{};
    };
    media.onMedia = [folder](const std::string& name) { return fileState(folder, name); };
    media.installerIsOnMedia = fs::equivalent(ownFolder, folder, error);
    media.directory = directory;
    return media;
}

std::optional<fs::path> findInstaller(const fs::path& folder) {
    if (std::optional<fs::path> path = findInFolder(folder, "Install.exe")) {
        return path;
    }
    std::optional<fs::path> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        std::error_code ignored;
        if (!isExecutable(entry.path()) || entry.file_size(ignored) > largestInstaller) {
            continue;
        }
        const std::optional<std::string> content = readWholeFile(entry.path().string());
        std::string code, name;
        if (content && readStamp(*content, code, name)) {
            if (found) {
                return std::nullopt;
            }
            found = entry.path();
        }
    }
    return found;
}

std::vector<std::string> faultsOf(const MediaReport& report) {
    std::vector<std::string> faults;
    for (const MediaFile& file : report.files) {
        if (!file.present || !file.damage.empty()) {
            faults.push_back(file.name + ": " + (file.present ? file.damage : "missing"));
        }
    }
    for (const std::string& problem : report.problems) {
        faults.push_back(toUtf8(problem));
    }
    return faults;
}

std::vector<fs::path> foldersIn(const fs::path& folder) {
    std::vector<fs::path> folders;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        std::error_code ignored;
        if (entry.is_directory(ignored)) {
            folders.push_back(entry.path());
        }
    }
    if (error) {
        throw Refusal("Cannot read the folder \"" + folder.string() + "\": " + error.message() +
                      '.');
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}
