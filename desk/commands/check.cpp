// Tells what installers will do with their media, and whether those are what was to be delivered.
#include <algorithm>

#include "desk/commands/command.h"
#include "desk/computer/dry_run.h"
#include "desk/media/manifest.h"
#include "desk/media/media_folder.h"
#include "desk/media/media_report.h"
#include "desk/media/product_facts.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

struct Choices {
    std::string installer;
    std::string folder;
    std::string release;
    std::vector<std::string> codes;
    MediaChoices media;
    std::vector<std::string> machineFiles;
    MachineChoices machine;
    std::string page;
};

/// None where nothing was said that asks for a dry run.
std::vector<MachineDescription> describedMachines(const Choices& choices) {
    std::vector<MachineDescription> machines;
    for (const std::string& file : choices.machineFiles) {
        machines.push_back(readMachine(file, choices.machine));
    }
    if (machines.empty() &&
        (!choices.machine.windows.empty() || choices.machine.bits != 0 || !choices.page.empty())) {
        machines.push_back(emptyMachine(choices.machine));
    }
    return machines;
}

/// The runs of all products from media that hold everything.
Json runsOfAll(const Choices& choices, const std::vector<MachineDescription>& machines) {
    Json media = Json::array();
    for (const ProductFacts& product : productFacts()) {
        Json one = {{"productCode", product.code}, {"productName", product.name}};
        for (const MachineDescription& machine : machines) {
            one["runs"].push_back(dryRun({.identity = {product.code, product.name},
                                          .sourceDirectory = fromUtf8(choices.media.directory),
                                          .files = product.files},
                                         machine));
            one["build"] = one["runs"].back()["build"];
        }
        media.push_back(std::move(one));
    }
    return media;
}

/// The report of a folder, with what the set says otherwise of it.
Json reportOf(const fs::path& folder, const SetMember& member, const Choices& choices,
              const std::vector<MachineDescription>& machines) {
    Json report = emptyReport(folder);
    try {
        report = examineMedia(findInstaller(folder), folder, choices.media, machines);
        const std::string code = report["productCode"], build = report["build"];
        Json& problems = report["problems"];
        if (!code.empty() && !equalIgnoringCase(code, folder.filename().string())) {
            problems.push_back("The installer is that of product " + code + '.');
        }
        if (!member.build.empty() && build != member.build) {
            problems.push_back("The build is " + build + ", and the set is made of " +
                               member.build + '.');
        }
        const std::string manifest = readWholeFile(folder / manifestFile).value_or("");
        if (!member.manifest.empty() && sha256(manifest) != member.manifest) {
            problems.push_back(std::string(manifestFile) + " is missing or not that of the set.");
        }
    } catch (const Refusal& reason) {
        report["problems"].push_back(reason.what());
    }
    report["complete"] = faultsOf(report).empty();
    return report;
}

/// What layout listed, unless products are named, else the media of all products.
MediaSet expectedSet(const Choices& choices) {
    if (choices.codes.empty() && fs::exists(fs::path(choices.release) / mediaSetFile)) {
        return readMediaSet(choices.release);
    }
    MediaSet set;
    for (const ProductFacts& facts : productFacts(choices.codes)) {
        set[folderOf(facts.code)] = {};
    }
    return set;
}

/// The reports of a whole set. What is wrong with it beyond them goes to `problems`.
Json checkSet(const Choices& choices, const std::vector<MachineDescription>& machines,
              Json& problems) {
    Json media = Json::array();
    MediaSet missing = expectedSet(choices);
    std::set<std::string> builds;  // of members that may be of any, if all are of the same
    for (const fs::path& folder : entriesIn(choices.release)) {
        const std::string name = folder.filename();
        if (name == mediaSetFile) {
            continue;
        }
        const auto member = missing.find(lowerCase(name));
        if (member == missing.end() || fs::is_symlink(folder) || !fs::is_directory(folder)) {
            problems.push_back(inQuotes(name) + " is no media folder of this set.");
            continue;
        }
        media.push_back(reportOf(folder, member->second, choices, machines));
        const std::string build = media.back().value("build", "");
        if (member->second.build.empty() && !build.empty()) {
            builds.insert(build);
        }
        missing.erase(member);
    }
    for (const auto& [code, member] : missing) {
        problems.push_back("The media of product " + code + " are missing.");
    }
    if (builds.size() > 1) {
        problems.push_back("The media are of different builds: " + joined(builds));
    }
    return media;
}

/// A line for each folder, and what is wrong with it below.
std::string setInWords(const Json& document) {
    std::vector<std::vector<std::string>> rows;
    std::size_t complete = 0;
    for (const Json& report : document["media"]) {
        const bool isComplete = report["complete"];
        complete += isComplete ? 1 : 0;
        rows.push_back({isComplete ? "complete" : "NOT COMPLETE",
                        fs::path(report.value("folder", "")).filename().string(),
                        report["productName"], report["build"],
                        signatureInWords(report["signature"])});
        for (const std::string& fault : faultsOf(report)) {
            rows.push_back({"    " + fault});
        }
        for (const std::string warning : report["warnings"]) {
            rows.push_back({"    warning: " + warning});
        }
    }
    return inColumns(rows) + '\n' + inLines("PROBLEM   ", document["problems"]) +
           std::to_string(complete) + " of " + std::to_string(document["media"].size()) +
           " media folders are complete" +
           (document["complete"] == true ? "\n" : "; the set is NOT COMPLETE\n");
}

// page.html, which CMake puts between quotes.
constexpr std::string_view pageTemplate =
#include "page.inc"
    ;
constexpr std::string_view reportStart = "<script type=\"application/json\" id=\"runs\">";
static_assert(pageTemplate.find(reportStart) != std::string_view::npos);

/// The document as one page for a browser, for people who would rather look than read; it needs no
/// other file.
std::string pageOf(const Json& report) {
    std::string text = report.dump(-1, ' ', false, Json::error_handler_t::replace);
    hideArchiveKeys(text);
    text = replaceAll(text, "<", "\\u003c", false);  // or one could end the script element
    return std::string(pageTemplate)
        .insert(pageTemplate.find(reportStart) + reportStart.size(), text);
}

void check(const Choices& choices, Session& session) {
    const bool ofMedia = !choices.installer.empty(), ofSet = !choices.release.empty();
    if (ofMedia == ofSet && (ofMedia || choices.page.empty())) {
        throw CLI::ValidationError("check", "needs INSTALLER and FOLDER, or --release FOLDER");
    }
    if (ofMedia && choices.folder.empty()) {
        throw CLI::ValidationError("check", "FOLDER, the media folder, is missing");
    }
    const std::vector<MachineDescription> machines = describedMachines(choices);
    Json problems = Json::array(), computers = Json::array();
    for (const MachineDescription& machine : machines) {
        computers.push_back({{"name", machine.name}, {"administrator", machine.administrator}});
    }
    const Json media = ofSet     ? checkSet(choices, machines, problems)
                       : ofMedia ? Json::array({examineMedia(choices.installer, choices.folder,
                                                             choices.media, machines)})
                                 : runsOfAll(choices, machines);
    const bool isComplete = problems.empty() && std::ranges::all_of(media, [](const Json& report) {
                                return report.value("complete", true);
                            });
    const Json document = {{"media", media},
                           {"problems", problems},
                           {"complete", isComplete},
                           {"computers", computers}};
    if (!choices.page.empty()) {
        writeOutput(choices.page, pageOf(document));
    }
    if (ofMedia) {
        printResult(session, media[0], mediaInWords(media[0]));
    } else {
        printResult(session, document, ofSet ? setInWords(document) : "");
    }
    const bool isWarned = std::ranges::any_of(
        media, [](const Json& report) { return !report.value("warnings", Json::array()).empty(); });
    session.exitCode = isComplete && !(session.strict && isWarned) ? exitGood : exitWrong;
}

}  // namespace

void addCheckOptions(CLI::App& command, Session& session) {
    const auto choices = std::make_shared<Choices>();
    command.add_option("INSTALLER", choices->installer, "The stamped installer");
    command.add_option("FOLDER", choices->folder, "The media folder");
    command.add_option("--release", choices->release,
                       "Check all media folders in this folder instead: those that \"layout\" "
                       "listed there, else those of all products, of one build");
    addRepeated(command, "--product", choices->codes, "CODE",
                "With --release: the media are those of this product; may be repeated");
    command.add_option("--dir", choices->media.directory, "The folder as the launcher names it")
        ->capture_default_str();
    command.add_option("--build", choices->media.requiredBuild,
                       "The build that the media must hold");
    addSignatureOptions(command, choices->media.signature);
    addRepeated(command, "--installed", choices->machineFiles, "FILE",
                "Tell the whole run on the machine that this file describes: JSON, or what "
                "regedit exports; given again, on another one beside it");
    command.add_option("--windows", choices->machine.windows,
                       "The machine's release, such as \"Windows 7\"");
    command.add_option("--bits", choices->machine.bits, "The machine's bitness")
        ->check(CLI::IsMember({32, 64}));
    command.add_option("--html", choices->page,
                       "Write a page that shows the runs; without media, those of all products");
    command.callback([choices, &session] { check(*choices, session); });
}
