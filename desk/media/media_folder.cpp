#include "desk/media/media_folder.h"

#include "desk/executables/executable.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/product_facts.h"
#include "platform/ansi_text.h"

namespace {

bool isExecutable(const fs::path& path) {
    return equalIgnoringCase(path.extension().string(), ".exe");
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

std::string damageOf(const fs::path& file, const FileSummary& summary) {
    return summary.size == 0    ? "it is empty"
           : isExecutable(file) ? Executable(summary).damage()
                                : "";
}

std::string damageOf(const fs::path& file) {
    try {
        return damageOf(file, summarize(file));
    } catch (const Refusal& reason) {
        return reason.what();
    }
}

fs::path findInstaller(const fs::path& folder) {
    if (const std::optional<fs::path> path = findInFolder(folder, "Install.exe")) {
        return *path;
    }
    std::set<fs::path> found = entriesIn(folder);
    std::erase_if(found, [](const fs::path& file) {
        std::error_code ignored;
        return !isExecutable(file) || fs::file_size(file, ignored) > largestInstaller ||
               readStamp(readWholeFile(file).value_or("")).code.empty();
    });
    if (found.size() != 1) {
        throw Refusal(found.empty() ? "There is no stamped installer."
                                    : "There is more than one stamped installer.");
    }
    return *found.begin();
}

std::set<fs::path> entriesIn(const fs::path& folder) {
    std::error_code failure;
    const fs::directory_iterator found(folder, failure);
    if (failure) {
        refuse(folder, "cannot be read: " + failure.message() + '.');
    }
    return {begin(found), end(found)};
}

MediaSet readMediaSet(const fs::path& folder) {
    MediaSet set;
    const fs::path file = folder / mediaSetFile;
    try {
        const Json document = readJson(file);
        for (const Json& member : document.at("media")) {
            set[folderOf(member.at("code"))] = {member.at("build"), member.at("manifest")};
        }
    } catch (const Json::exception&) {
        refuse(file, "is no list of media that \"layout\" wrote.");
    }
    return set;
}

std::string asText(const MediaSet& set) {
    Json document = {{"media", Json::array()}};
    for (const auto& [code, member] : set) {
        document["media"].push_back(
            {{"code", code}, {"build", member.build}, {"manifest", member.manifest}});
    }
    return document.dump(2) + '\n';
}
