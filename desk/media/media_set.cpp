#include "desk/media/media_set.h"

#include <nlohmann/json.hpp>

#include "desk/executables/stamp_image.h"
#include "desk/media/product_facts.h"
#include "desk/media/release_folder.h"
#include "desk/refusal.h"

namespace fs = std::filesystem;

MediaSet readMediaSet(const fs::path& folder) {
    MediaSet set;
    const fs::path file = folder / mediaSetFile;
    if (!fs::exists(file)) {
        for (const ProductFacts& facts : allProductFacts()) {
            set[folderOf(facts.code)] = {};
        }
        return set;
    }
    try {
        const Json document = readJson(file.string());
        for (const Json& member : document.at("media")) {
            set[folderOf(member.at("code"))] = {member.at("build"), member.at("manifest")};
        }
    } catch (const Json::exception&) {
        throw Refusal("\"" + file.string() + "\" is no list of media that \"layout\" wrote.");
    }
    return set;
}

MediaSet mediaSetOf(const std::vector<std::string>& codes) {
    MediaSet set;
    for (const std::string& code : codes) {
        set[folderOf(chooseStampedCode(CProductData(), code).code)] = {};
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
