#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "catalogue/product_catalogue.h"
#include "desk/commands/command.h"
#include "desk/computer/dry_run.h"
#include "desk/computer/machine_description.h"
#include "desk/media/media_folder.h"
#include "desk/media/product_facts.h"
#include "desk/page/dry_run_text.h"
#include "desk/page/story_page.h"
#include "desk/refusal.h"
#include "desk/whole_file.h"

namespace {

namespace fs = std::filesystem;

struct Choices {
    std::string installer;
    std::string folder;
    std::string release;
    std::string directory = "D:\\";
    std::string requiredBuild;
    std::string machineFile;
    MachineChoices machine;
    std::string page;
};

/// What is known of one media folder.
struct Checked {
    std::string where;
    MediaReport report;
    std::optional<DryRun> run;
};

MachineDescription describedMachine(const Choices& choices) {
    MachineDescription machine;
    std::string error;
    if (choices.machineFile.empty()) {
        if (!emptyMachine(choices.machine, machine, error)) {
            throw Refusal(error + '.');
        }
        return machine;
    }
    const std::optional<std::string> description = readWholeFile(choices.machineFile);
    if (!description) {
        throw Refusal("Cannot read the machine's description \"" + choices.machineFile + "\".");
    }
    const fs::path folder = fs::path(choices.machineFile).parent_path();
    const auto readNamed = [&folder](const std::string& name) {
        return readWholeFile((folder / name).string());
    };
    if (!readMachine(*description, readNamed, choices.machine, machine, error)) {
        throw Refusal("\"" + choices.machineFile + "\": " + error + '.');
    }
    return machine;
}

Checked checkMedia(const fs::path& installer, const fs::path& folder, const Choices& choices,
                   const std::optional<MachineDescription>& machine) {
    Media media = mediaOf(installer, folder, choices.directory);
    media.requiredBuild = choices.requiredBuild;
    CProductData catalogue;
    Checked checked{folder.string(), examineMedia(media, catalogue), std::nullopt};
    if (machine && !checked.report.productCode.empty()) {
        checked.run = dryRun(dryRunMedia(media, checked.report), *machine);
    }
    return checked;
}

/// Every folder of a release; one without an installer is a problem of its own.
std::vector<Checked> checkRelease(const Choices& choices,
                                  const std::optional<MachineDescription>& machine) {
    std::vector<Checked> all;
    for (const fs::path& folder : foldersIn(choices.release)) {
        if (const std::optional<fs::path> installer = findInstaller(folder)) {
            all.push_back(checkMedia(*installer, folder, choices, machine));
        } else {
            Checked checked{folder.string(), {}, std::nullopt};
            checked.report.problems.emplace_back(
                "There is no stamped installer, or more than one.");
            all.push_back(std::move(checked));
        }
    }
    if (all.empty()) {
        throw Refusal("\"" + choices.release + "\" holds no media folders.");
    }
    return all;
}

/// The runs of all products from media that hold everything.
std::vector<DryRun> runsOfAll(const Choices& choices, const MachineDescription& machine) {
    std::vector<DryRun> runs;
    for (const ProductFacts& product : allProductFacts()) {
        runs.push_back(dryRun({.identity = {product.code, product.name},
                               .sourceDirectory = choices.directory,
                               .files = product.files},
                              machine));
    }
    return runs;
}

std::string column(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text + "  ";
}

/// A line for each folder, and what is wrong with it below.
std::string releaseAsText(const std::vector<Checked>& all) {
    std::string text;
    std::size_t complete = 0;
    std::size_t nameWidth = 0;
    for (const Checked& checked : all) {
        nameWidth = std::max(nameWidth, checked.report.productName.size());
    }
    for (const Checked& checked : all) {
        const MediaReport& report = checked.report;
        complete += report.isComplete() ? 1 : 0;
        text += column(report.isComplete() ? "complete" : "NOT COMPLETE", 12) +
                column(fs::path(checked.where).filename().string(), 4) +
                column(report.productName, nameWidth) + report.build + '\n';
        for (const MediaFile& file : report.files) {
            if (!file.present || !file.damage.empty()) {
                text += "    " + file.name + ": " + (file.present ? file.damage : "missing") + '\n';
            }
        }
        for (const std::string& problem : report.problems) {
            text += "    " + problem + '\n';
        }
        for (const std::string& warning : report.warnings) {
            text += "    warning: " + warning + '\n';
        }
    }
    return text + '\n' + std::to_string(complete) + " of " + std::to_string(all.size()) +
           " media folders are complete\n";
}

Json toJson(const Checked& checked) {
    Json json = asJson(checked.report);
    if (checked.run) {
        json["run"] = dryRunAsJson(*checked.run);
    }
    return json;
}

void print(const std::vector<Checked>& all, const Choices& choices, bool json) {
    if (!choices.release.empty()) {
        if (json) {
            Json document = {{"media", Json::array()}, {"complete", true}};
            for (const Checked& checked : all) {
                Json one = toJson(checked);
                one["folder"] = checked.where;
                document["complete"] = document["complete"] && checked.report.isComplete();
                document["media"].push_back(std::move(one));
            }
            printJson(document);
        } else {
            std::cout << releaseAsText(all);
        }
        return;
    }
    for (const Checked& checked : all) {
        if (json) {
            printJson(toJson(checked));
        } else {
            if (checked.run) {
                std::cout << dryRunAsText(*checked.run) << '\n';
            }
            std::cout << asText(checked.report);
        }
    }
}

void writePage(const std::vector<DryRun>& runs, const Choices& choices,
               const MachineDescription& machine) {
    std::string error;
    if (!writeWholeFile(choices.page, storyPage(runs, machine), error)) {
        throw Refusal("Cannot write \"" + choices.page + "\": " + error);
    }
}

int check(const Choices& choices, bool json) {
    const bool ofMedia = !choices.installer.empty();
    const bool ofRelease = !choices.release.empty();
    if (ofMedia == ofRelease && (ofMedia || choices.page.empty())) {
        throw CLI::ValidationError("check", "needs INSTALLER and FOLDER, or --release FOLDER");
    }
    if (ofMedia && choices.folder.empty()) {
        throw CLI::ValidationError("check", "FOLDER, the media folder, is missing");
    }
    std::optional<MachineDescription> machine;
    if (!choices.machineFile.empty() || !choices.machine.windows.empty() ||
        choices.machine.bits != 0 || !choices.page.empty()) {
        machine = describedMachine(choices);
    }
    if (!ofMedia && !ofRelease) {
        writePage(runsOfAll(choices, *machine), choices, *machine);
        return exitGood;
    }
    std::vector<Checked> all;
    if (ofRelease) {
        all = checkRelease(choices, machine);
    } else {
        all.push_back(checkMedia(choices.installer, choices.folder, choices, machine));
    }
    print(all, choices, json);
    std::vector<DryRun> runs;
    bool complete = true;
    for (const Checked& checked : all) {
        complete = complete && checked.report.isComplete();
        if (checked.run) {
            runs.push_back(*checked.run);
        }
    }
    if (!choices.page.empty()) {
        writePage(runs, choices, *machine);
    }
    return complete ? exitGood : exitWrong;
}

}  // namespace

void addCheckCommand(CLI::App& app, Session& session) {
    CLI::App* const command =
        addCommand(app, session, "check",
                   "Tells what an installer will do with its media and whether they are whole");
    const auto choices = std::make_shared<Choices>();
    command->add_option("INSTALLER", choices->installer, "The stamped installer");
    command->add_option("FOLDER", choices->folder, "The media folder");
    command->add_option("--release", choices->release,
                        "Check every media folder in this folder instead");
    command->add_option("--dir", choices->directory, "The folder as the launcher names it")
        ->capture_default_str();
    command->add_option("--build", choices->requiredBuild, "The build that the media must hold");
    command->add_option("--installed", choices->machineFile,
                        "Tell the whole run on the machine that this file describes: JSON, or what "
                        "regedit exports");
    command->add_option("--windows", choices->machine.windows,
                        "The machine's release, such as \"Windows 7\"");
    command->add_option("--bits", choices->machine.bits, "The machine's bitness")
        ->check(CLI::IsMember({32, 64}));
    command->add_option("--html", choices->page,
                        "Write a page that shows the runs; without media, those of all products");
    command->callback([choices, &session] { session.exitCode = check(*choices, session.json); });
}
