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

std::string damageOf(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return "it is a link that leads nowhere";
    }
    if (error) {
        return "it cannot be looked at: " + error.message();
    }
    if (fs::is_directory(status)) {
        return "it is a folder, not a file";
    }
    if (!fs::is_regular_file(status)) {
        return "it is no regular file";
    }
    if (fs::file_size(path, error) == 0 && !error) {
        return "it is empty";
    }
    const std::optional<std::string> content = readWholeFile(path.string());
    if (!content) {
        return "it cannot be read";
    }
    return isExecutable(path) ? executableDamage(*content) : "";
}

}  // namespace

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
    return path ? FileState{true, damageOf(*path)} : FileState{};
}

Media mediaOf(const fs::path& installer, const fs::path& folder, const std::string& directory) {
    std::optional<std::string> content = readWholeFile(installer.string());
    if (!content) {
        throw Refusal("Cannot read the installer \"" + installer.string() +
                      "\": is the path right?");
    }
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        throw Refusal("\"" + folder.string() + "\" is not a folder.");
    }
    const fs::path ownFolder = fs::absolute(installer).parent_path();
    Media media;
    media.installer = std::move(*content);
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
        if (!isExecutable(entry.path())) {
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
