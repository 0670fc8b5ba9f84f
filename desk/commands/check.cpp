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
#include "desk/page/page.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"

namespace {

namespace fs = std::filesystem;

struct Choices {
    std::string installer;
    std::string folder;
    std::string release;
    std::string directory = "D:\\";
    std::string requiredBuild;
    std::vector<std::string> machineFiles;
    MachineChoices machine;
    std::string page;
};

/// What is known of one media folder.
struct Checked {
    std::string where;
    MediaReport report;
    std::vector<DryRun> runs;
};

MachineDescription describedMachine(const std::string& file, const MachineChoices& choices) {
    MachineDescription machine;
    std::string error;
    if (file.empty()) {
        if (!emptyMachine(choices, machine, error)) {
            throw Refusal(error + '.');
        }
        machine.name = "nothing installed";
        return machine;
    }
    const std::optional<std::string> description = readWholeFile(file);
    if (!description) {
        throw Refusal("Cannot read the machine's description \"" + file + "\".");
    }
    const fs::path folder = fs::path(file).parent_path();
    const auto readNamed = [&folder](const std::string& name) {
        return readWholeFile((folder / name).string());
    };
    if (!readMachine(*description, readNamed, choices, machine, error)) {
        throw Refusal("\"" + file + "\": " + error + '.');
    }
    machine.name = fs::path(file).filename().string();
    return machine;
}

/// None where nothing was said that asks for a dry run.
std::vector<MachineDescription> describedMachines(const Choices& choices) {
    std::vector<MachineDescription> machines;
    for (const std::string& file : choices.machineFiles) {
        machines.push_back(describedMachine(file, choices.machine));
    }
    if (machines.empty() &&
        (!choices.machine.windows.empty() || choices.machine.bits != 0 || !choices.page.empty())) {
        machines.push_back(describedMachine("", choices.machine));
    }
    return machines;
}

Checked checkMedia(const fs::path& installer, const fs::path& folder, const Choices& choices,
                   const std::vector<MachineDescription>& machines) {
    Media media = mediaOf(installer, folder, choices.directory);
    media.requiredBuild = choices.requiredBuild;
    CProductData catalogue;
    Checked checked{folder.string(), examineMedia(media, catalogue), {}};
    for (const MachineDescription& machine : machines) {
        if (checked.report.productCode.empty()) {
            break;
        }
        checked.runs.push_back(dryRun(dryRunMedia(media, checked.report), machine));
    }
    return checked;
}

/// Every folder of a release; one without an installer is a problem of its own.
std::vector<Checked> checkRelease(const Choices& choices,
                                  const std::vector<MachineDescription>& machines) {
    std::vector<Checked> all;
    for (const fs::path& folder : foldersIn(choices.release)) {
        if (const std::optional<fs::path> installer = findInstaller(folder)) {
            all.push_back(checkMedia(*installer, folder, choices, machines));
        } else {
            Checked checked{folder.string(), {}, {}};
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
Json runsOfAll(const Choices& choices, const std::vector<MachineDescription>& machines) {
    Json media = Json::array();
    for (const ProductFacts& product : allProductFacts()) {
        Json one = {{"productCode", product.code}, {"productName", product.name}};
        for (const MachineDescription& machine : machines) {
            const DryRun run = dryRun({.identity = {product.code, product.name},
                                       .sourceDirectory = choices.directory,
                                       .files = product.files},
                                      machine);
            one["build"] = toUtf8(run.build);
            one["runs"].push_back(dryRunAsJson(run));
        }
        media.push_back(std::move(one));
    }
    return media;
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
    if (checked.runs.size() == 1) {
        json["run"] = dryRunAsJson(checked.runs.front());
    }
    for (std::size_t run = 0; checked.runs.size() > 1 && run < checked.runs.size(); ++run) {
        json["runs"].push_back(dryRunAsJson(checked.runs[run]));
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
            for (const DryRun& run : checked.runs) {
                std::cout << dryRunAsText(run) << '\n';
            }
            std::cout << asText(checked.report);
        }
    }
}

void writePage(Json media, const Choices& choices,
               const std::vector<MachineDescription>& machines) {
    Json report = {{"computers", Json::array()}, {"media", std::move(media)}};
    for (const MachineDescription& machine : machines) {
        report["computers"].push_back(
            {{"name", toUtf8(machine.name)}, {"administrator", machine.administrator}});
    }
    writeOutput(choices.page, pageOf(report));
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
    const std::vector<MachineDescription> machines = describedMachines(choices);
    if (!ofMedia && !ofRelease) {
        writePage(runsOfAll(choices, machines), choices, machines);
        return exitGood;
    }
    std::vector<Checked> all;
    if (ofRelease) {
        all = checkRelease(choices, machines);
    } else {
        all.push_back(checkMedia(choices.installer, choices.folder, choices, machines));
    }
    print(all, choices, json);
    Json media = Json::array();
    bool complete = true;
    for (const Checked& checked : all) {
        complete = complete && checked.report.isComplete();
        media.push_back(toJson(checked));
        media.back()["folder"] = checked.where;
    }
    if (!choices.page.empty()) {
        writePage(std::move(media), choices, machines);
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
    command
        ->add_option("--installed", choices->machineFiles,
                     "Tell the whole run on the machine that this file describes: JSON, or what "
                     "regedit exports; given again, on another one beside it")
        ->allow_extra_args(false);
    command->add_option("--windows", choices->machine.windows,
                        "The machine's release, such as \"Windows 7\"");
    command->add_option("--bits", choices->machine.bits, "The machine's bitness")
        ->check(CLI::IsMember({32, 64}));
    command->add_option("--html", choices->page,
                        "Write a page that shows the runs; without media, those of all products");
    command->callback([choices, &session] { session.exitCode = check(*choices, session.json); });
}
