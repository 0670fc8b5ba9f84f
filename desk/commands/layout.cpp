// Makes the media folders of one or all products from a description.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "catalogue/cipher.h"
#include "desk/commands/command.h"
#include "desk/executables/stamp_image.h"
#include "desk/executables/stamping.h"
#include "desk/media/file_copy.h"
#include "desk/media/layout_description.h"
#include "desk/media/media_folder.h"
#include "desk/media/product_data.h"
#include "desk/media/product_facts.h"
#include "desk/media/release_folder.h"
#include "desk/media/staging.h"
#include "desk/refusal.h"
#include "desk/table.h"
#include "desk/whole_file.h"
#include "platform/ansi_text.h"

namespace {

namespace fs = std::filesystem;

struct Choices {
    std::string description;
    std::string folder;
    std::vector<std::string> codes;
    bool links = false;
    bool example = false;
};

/// A file of a media folder: made of bytes, or copied when there is a source.
struct PlannedFile {
    fs::path name;  ///< within the folder
    std::string bytes;
    fs::path source;
};

/// What a product's media folder is to hold.
struct PlannedMedia {
    ProductFacts facts;
    std::string build;
    std::vector<PlannedFile> files;
};

/// Adds a file whose name, in any letter case, is not yet taken.
void add(PlannedMedia& media, PlannedFile file) {
    for (const PlannedFile& other : media.files) {
        if (equalIgnoringCase(other.name.generic_string(), file.name.generic_string())) {
            throw Refusal("\"" + file.name.generic_string() + "\" of product " + media.facts.code +
                          " comes twice: from \"" + other.source.string() + "\" and \"" +
                          file.source.string() + "\"; leave one out.");
        }
    }
    media.files.push_back(std::move(file));
}

void addSource(PlannedMedia& media, const fs::path& name, const fs::path& source) {
    std::error_code failure;
    if (!fs::is_regular_file(source, failure)) {
        throw Refusal("\"" + source.string() + "\", the " + name.string() + " of product " +
                      media.facts.code + ", is no file: " +
                      (failure ? failure.message() : "it is a folder or a device") +
                      "; correct the description.");
    }
    add(media, {name, "", source});
}

/// The folder's files, with the folders that they lie in.
void addContents(PlannedMedia& media, const fs::path& folder) {
    std::error_code failure;
    if (!fs::is_directory(folder, failure)) {
        throw Refusal("\"" + folder.string() + "\", the contents of product " + media.facts.code +
                      ", is no folder; correct the description.");
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        addSource(media, file.lexically_relative(folder), file);
    }
}

PlannedMedia plan(const LayoutDescription& description, const ProductFacts& facts) {
    PlannedMedia media{facts, description.build(facts.code), {}};
    CProductData catalogue;
    const ProductStamp stamp =
        chooseStamp(catalogue, facts.code, description.name(facts.code), media.build);
    for (const std::string& note : stamp.notes) {
        printNote(facts.code, note);
    }
    const std::string installer = description.installer(facts.code).string();
    add(media, {description.installerName(facts.code),
                stampedInstaller(readInput(installer), installer, stamp), installer});
    const std::string data = productDataOf(media.build);
    const bool enciphered = description.isEnciphered(facts.code);
    add(media, {enciphered ? "ProductData.inx" : "ProductData.ini",
                enciphered ? encipher(data) : data, "the build"});
    for (const std::string& file : facts.files) {
        addSource(media, file, description.source(facts.code, file));
    }
    if (const auto contents = description.contents(facts.code)) {
        addContents(media, *contents);
    }
    return media;
}

bool isMade(const PlannedFile& file) {
    return !file.bytes.empty();
}

/// Whether the folder holds just what is planned.
bool isAsPlanned(const PlannedMedia& media, const fs::path& folder) {
    std::error_code failure;
    std::size_t count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, failure)) {
        count += entry.is_directory() ? 0 : 1;
    }
    return !failure && count == media.files.size() &&
           std::all_of(media.files.begin(), media.files.end(), [&](const PlannedFile& file) {
               const fs::path existing = folder / file.name;
               return isMade(file) ? readWholeFile(existing.string()) == file.bytes
                                   : isSameContent(file.source, existing);
           });
}

/// Throws Refusal when the folder holds something else than media of the product.
void requireMediaOf(const ProductFacts& facts, const fs::path& folder) {
    std::error_code failure;
    if (!fs::exists(folder, failure) || fs::is_empty(folder, failure)) {
        return;
    }
    std::string code, name;
    const auto installer = findInstaller(folder);
    const auto image = installer ? readWholeFile(installer->string()) : std::nullopt;
    if (!image || !readStamp(*image, code, name) || !equalIgnoringCase(code, facts.code)) {
        throw Refusal("\"" + folder.string() + "\" holds something else than media of product " +
                      facts.code + ", which is left alone; name another folder.");
    }
}

void make(const PlannedMedia& media, const fs::path& folder, bool links) {
    for (const PlannedFile& file : media.files) {
        stopWhenAsked();
        const fs::path target = folder / file.name;
        if (isMade(file)) {
            writeOutput(target.string(), file.bytes);
        } else {
            makeFolder(target.parent_path());
            copyFile(file.source, target, links,
                     media.facts.code + '/' + file.name.generic_string());
        }
    }
}

/// Throws Refusal when the media that were made are not what a run needs.
void check(const PlannedMedia& media, const fs::path& folder) {
    CProductData catalogue;
    Media found = mediaOf(folder / media.files.front().name, folder, "D:\\");
    found.requiredBuild = media.build;
    const MediaReport report = examineMedia(found, catalogue);
    std::string problems;
    for (const MediaFile& file : report.files) {
        if (!file.present || !file.damage.empty()) {
            problems += "\n  " + file.name + ": " + (file.present ? file.damage : "missing");
        }
    }
    for (const std::string& problem : report.problems) {
        problems += "\n  " + problem;
    }
    if (!report.isComplete()) {
        throw Refusal("The media of product " + media.facts.code +
                      " would not be complete; nothing was changed:" + problems);
    }
}

std::vector<ProductFacts> chosenProducts(const std::vector<std::string>& codes) {
    std::vector<ProductFacts> all = allProductFacts();
    for (const std::string& code : codes) {
        if (std::none_of(all.begin(), all.end(), [&code](const ProductFacts& facts) {
                return equalIgnoringCase(facts.code, code);
            })) {
            throw Refusal("No product with code \"" + code +
                          "\" can be installed; \"installer-tool products\" shows those that can.");
        }
    }
    if (!codes.empty()) {
        std::erase_if(all, [&codes](const ProductFacts& facts) {
            return std::none_of(codes.begin(), codes.end(), [&facts](const std::string& code) {
                return equalIgnoringCase(facts.code, code);
            });
        });
    }
    return all;
}

void report(const std::vector<PlannedMedia>& all, const std::vector<bool>& made,
            const Choices& choices, bool json) {
    Json document = {{"folder", choices.folder}, {"media", Json::array()}};
    std::vector<std::vector<std::string>> rows;
    for (std::size_t index = 0; index < all.size(); ++index) {
        const PlannedMedia& media = all[index];
        Json files = Json::array();
        for (const PlannedFile& file : media.files) {
            files.push_back(file.name.generic_string());
        }
        document["media"].push_back({{"code", media.facts.code},
                                     {"folder", folderOf(media.facts.code)},
                                     {"build", media.build},
                                     {"files", files},
                                     {"endsSilently", media.facts.endsSilently},
                                     {"changed", static_cast<bool>(made[index])}});
        rows.push_back({folderOf(media.facts.code), made[index] ? "made" : "unchanged",
                        std::to_string(media.files.size()) + " files", media.build,
                        media.facts.name});
        if (media.facts.endsSilently) {
            rows.back().back() += "  (its run ends silently: nothing is installed)";
        }
    }
    if (json) {
        printJson(document);
        return;
    }
    std::cout << inColumns(rows) << '\n'
              << all.size() << " media folders in " << choices.folder << ", all complete; "
              << std::count(made.begin(), made.end(), true) << " made, "
              << std::count(made.begin(), made.end(), false) << " unchanged\n";
}

void layOut(const Choices& choices, const Session& session) {
    if (choices.example) {
        std::cout << exampleLayoutDescription;
        return;
    }
    if (choices.folder.empty()) {
        throw CLI::ValidationError("layout", "needs DESCRIPTION and OUT, or --example");
    }
    const fs::path out = choices.folder;
    const LayoutDescription description(choices.description);
    std::vector<PlannedMedia> all;
    for (const ProductFacts& facts : chosenProducts(choices.codes)) {
        all.push_back(plan(description, facts));
        requireMediaOf(facts, out / folderOf(facts.code));
    }
    StagingFolder staging(out);
    std::vector<bool> made(all.size());
    for (std::size_t index = 0; index < all.size(); ++index) {
        const PlannedMedia& media = all[index];
        const std::string folder = folderOf(media.facts.code);
        made[index] = !isAsPlanned(media, out / folder);
        if (made[index]) {
            make(media, staging.path() / folder, choices.links);
        }
        check(media, (made[index] ? staging.path() : out) / folder);
    }
    makeFolder(out);
    for (std::size_t index = 0; index < all.size(); ++index) {
        const std::string folder = folderOf(all[index].facts.code);
        if (made[index]) {
            staging.put(staging.path() / folder, out / folder);
        }
    }
    report(all, made, choices, session.json);
}

}  // namespace

void addLayoutCommand(CLI::App& app, Session& session) {
    CLI::App* const command = addCommand(
        app, session, "layout",
        "Makes the media folder of each product, OUT/CODE, from one description, and checks it");
    const auto choices = std::make_shared<Choices>();
    command->add_option("DESCRIPTION", choices->description,
                        "JSON file; \"layout --example\" prints one with explanations");
    command->add_option("OUT", choices->folder,
                        "Where the media folders go; each is replaced whole, and only if something "
                        "in it changes");
    command->add_option("--product", choices->codes, "Only this product; may be repeated")
        ->take_all()
        ->type_name("CODE")
        ->allow_extra_args(false);
    command->add_flag("--link", choices->links, "Hard-link instead of copying where possible");
    command->add_flag("--example", choices->example, "Print an example description");
    command->callback([choices, &session] { layOut(*choices, session); });
}
