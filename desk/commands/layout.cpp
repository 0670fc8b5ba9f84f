// Makes the media folders of one or all products from a description.
#include <algorithm>

#include "desk/commands/command.h"
#include "desk/media/installer_maker.h"
#include "desk/media/media_folder.h"
#include "desk/media/media_plan.h"
#include "desk/media/media_report.h"
#include "desk/media/release_folder.h"

namespace {

/// A complete description with explanations: layout_example.json, which CMake puts between quotes.
constexpr const char* exampleDescription =
#include "layout_example.inc"
    ;

struct Choices {
    std::string description;
    std::string folder;
    std::map<std::string, std::string> forAll;  ///< entries of all products
    std::vector<std::string> settings;
    std::vector<std::string> codes;
    SigningChoices signing;
    bool links = false;
    bool example = false;
};

void refuseAll(const std::string& what, const std::vector<std::string>& problems) {
    if (!problems.empty()) {
        throw Refusal(what + "; nothing was changed:\n  " + joined(problems, "\n  "));
    }
}

/// Adds the installers, taken from a release that is as it should be, or made as one has them.
void addInstallers(std::vector<MediaPlan>& all, const LayoutDescription& description,
                   const SigningChoices& signing, OutputFolder& output) {
    const bool isReleased = description.has("", "release");
    fs::path source;
    if (isReleased) {
        source = description.path("", "release");
        refuseAll("The release " + inQuotes(source) + " is not as it should be",
                  asLines(examineRelease(source, "", signing.verification).problems));
    } else {
        std::vector<InstallerOrder> orders;
        for (const MediaPlan& media : all) {
            const std::string& code = media.facts.code;
            orders.push_back({folderOf(code) + '/' + media.installerName,
                              description.path(code, "installer"), media.stamp});
        }
        source = makeInstallers(orders, signing, output);
    }
    std::vector<std::string> problems;
    for (MediaPlan& media : all) {
        const std::string& code = media.facts.code;
        if (isReleased && description.has(code, "name") && media.stamp.name != media.facts.name) {
            problems.push_back("\"name\" of product " + code +
                               " is for installers that are made here, and those of a release are "
                               "not changed; leave it out.");
        }
        const std::string name = isReleased ? installerFile : media.installerName;
        addInstaller(media, source / folderOf(code) / name, problems);
    }
    refuseAll("The media cannot be made", problems);
}

void report(const std::vector<MediaPlan>& all, const std::vector<std::string>& made,
            const Choices& choices, const Session& session) {
    Json document = {{"folder", choices.folder}, {"media", Json::array()}};
    std::vector<std::vector<std::string>> rows;
    for (const MediaPlan& media : all) {
        const std::string folder = folderOf(media.facts.code);
        const bool isMade = std::find(made.begin(), made.end(), folder) != made.end();
        std::vector<std::string> files;
        std::ranges::transform(media.files, std::back_inserter(files), &PlannedFile::name);
        document["media"].push_back({{"code", media.facts.code},
                                     {"folder", folder},
                                     {"build", media.stamp.build},
                                     {"files", files},
                                     {"endsSilently", media.facts.endsSilently},
                                     {"changed", isMade}});
        rows.push_back({folder, isMade ? "made" : "unchanged",
                        std::to_string(files.size()) + " files", media.stamp.build,
                        media.facts.name, silentMark(media.facts.endsSilently)});
    }
    printResult(session, document,
                inColumns(rows) + '\n' + std::to_string(all.size()) + " media folders in " +
                    choices.folder + ", all complete; " + std::to_string(made.size()) + " made, " +
                    std::to_string(all.size() - made.size()) + " unchanged\n");
}

/// What all media are to hold but for the installers; refuses, before anything is written, what
/// cannot be made.
std::vector<MediaPlan> planAll(const LayoutDescription& description, const Choices& choices,
                               const Session& session) {
    std::vector<MediaPlan> all;
    std::vector<std::string> problems;
    for (const ProductFacts& facts : productFacts(choices.codes)) {
        all.push_back(planMedia(description, facts, problems));
    }
    refuseAll("The media cannot be made", problems);
    for (const MediaPlan& media : all) {
        printNotes(session, media.facts.code, media.stamp.notes);
        requireReplaceable(fs::path(choices.folder) / folderOf(media.facts.code), manifestFile);
    }
    return all;
}

/// Makes the folders in which something changes, and the list of the set; tells which were made.
std::vector<std::string> makeChanged(const std::vector<MediaPlan>& all, bool links,
                                     OutputFolder& output) {
    const bool isListed = fs::exists(output.path() / mediaSetFile);
    MediaSet set = isListed ? readMediaSet(output.path()) : MediaSet();
    std::vector<std::string> made;
    for (const MediaPlan& media : all) {
        const std::string folder = folderOf(media.facts.code), manifest = manifestOf(media);
        const fs::path existing = output.path() / folder, fresh = output.staging() / folder;
        set[folder] = {media.stamp.build, sha256(manifest)};
        if (readWholeFile(existing / manifestFile) != manifest) {
            makeMedia(media, fresh, links);
            const fs::path installer = fresh / media.installerName;
            if (!Executable(summarize(installer)).isSigned()) {
                requireUnsigned(existing / media.installerName);
            }
            refuseAll(
                "The media of product " + media.facts.code + " would not be complete",
                faultsOf(examineMedia(installer, fresh, {.requiredBuild = media.stamp.build}, {})));
            made.push_back(folder);
        }
    }
    std::vector<std::string> changed = made;
    if (readWholeFile(output.path() / mediaSetFile) != asText(set)) {
        writeOutput(output.staging() / mediaSetFile, asText(set));
        changed.emplace_back(mediaSetFile);
    }
    output.put(changed);
    return made;
}

void layOut(const Choices& choices, const Session& session) {
    if (choices.example) {
        printResult(session, Json::parse(exampleDescription, nullptr, true, true),
                    exampleDescription);
        return;
    }
    if (choices.folder.empty()) {
        throw CLI::ValidationError("layout", "needs DESCRIPTION and OUT, or --example");
    }
    const LayoutDescription description(choices.description, choices.settings, choices.forAll);
    if (description.has("", "release") && !choices.signing.command.empty()) {
        throw Refusal(
            "The installers of a release are not signed again: sign when it is made, or "
            "leave \"release\" out of the description.");
    }
    std::vector<MediaPlan> all = planAll(description, choices, session);
    OutputFolder output(choices.folder);
    addInstallers(all, description, choices.signing, output);
    report(all, makeChanged(all, choices.links, output), choices, session);
}

}  // namespace

void addLayoutOptions(CLI::App& command, Session& session) {
    const auto choices = std::make_shared<Choices>();
    command.add_option("DESCRIPTION", choices->description,
                       "JSON file; \"layout --example\" prints one with explanations");
    command.add_option("OUT", choices->folder,
                       "Where the media folders go; each is replaced whole, and only if something "
                       "in it changes");
    addRepeated(command, "--product", choices->codes, "CODE", "Only this product; may be repeated");
    command.add_option("--release", choices->forAll["release"],
                       "Take the installers, byte for byte, from this release");
    command.add_option("--build", choices->forAll["build"], "The build of all products");
    addRepeated(command, "--set", choices->settings, "KEY=VALUE|CODE.KEY=VALUE",
                "An entry of the description, or of one product in it; may be repeated");
    command.add_flag_callback(
        "--launcher", [choices] { choices->forAll["launcher"] = "true"; },
        "Lay \"install.cmd\", which starts the installer with the right folder, and "
        "\"autorun.inf\" beside each installer");
    addSigningOptions(command, choices->signing, "How many installers to make at a time");
    command.add_flag("--link", choices->links, "Hard-link instead of copying where possible");
    command.add_flag("--example", choices->example, "Print an example description");
    command.callback([choices, &session] { layOut(*choices, session); });
}
