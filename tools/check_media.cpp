// check_media INSTALLER.exe MEDIA_FOLDER [--dir DIR] [--json]
//
// Tells what a stamped installer will do with a media folder. Exit code 0: the media is complete;
// 1: something is missing or wrong; 2: wrong usage.
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "platform/ansi_text.h"
#include "tools/media_report.h"
#include "tools/whole_file.h"

namespace {

namespace fs = std::filesystem;

/// The path of a file in `folder` by its name in any letter case, as Windows finds it.
std::optional<std::string> findFile(const fs::path& folder, const std::string& name) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        if (equalIgnoringCase(entry.path().filename().string(), name)) {
            return entry.path().string();
        }
    }
    return std::nullopt;
}

int usage() {
    std::fputs(
        "usage: check_media INSTALLER.exe MEDIA_FOLDER [--dir DIR] [--json]\n"
        "  --dir DIR  the folder as the customer's launcher names it (default \"D:\\\")\n",
        stderr);
    return 2;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::vector<std::string> paths;
    std::string directory = "D:\\";
    bool json = false;
    for (int index = 1; index < argumentCount; ++index) {
        if (std::strcmp(arguments[index], "--json") == 0) {
            json = true;
        } else if (std::strcmp(arguments[index], "--dir") == 0 && index + 1 < argumentCount) {
            directory = arguments[++index];
        } else {
            paths.push_back(arguments[index]);
        }
    }
    if (paths.size() != 2 || directory.empty()) {
        return usage();
    }
    const std::optional<std::string> installer = readWholeFile(paths[0]);
    if (!installer) {
        std::fprintf(stderr, "check_media: cannot read %s\n", paths[0].c_str());
        return 2;
    }
    if (!fs::is_directory(paths[1])) {
        std::fprintf(stderr, "check_media: %s is not a folder\n", paths[1].c_str());
        return 2;
    }
    const fs::path installerFolder = fs::absolute(paths[0]).parent_path();
    const MediaReport report = examineMedia(
        *installer,
        [&](const std::string& name) -> std::optional<std::string> {
            const std::optional<std::string> path = findFile(installerFolder, name);
            return path ? readWholeFile(*path) : std::nullopt;
        },
        [&](const std::string& name) { return findFile(paths[1], name).has_value(); }, directory);
    const std::string output = json ? asJson(report) : asText(report);
    std::fwrite(output.data(), 1, output.size(), stdout);
    return report.isComplete() ? 0 : 1;
}
