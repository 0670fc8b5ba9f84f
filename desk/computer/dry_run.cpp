#include "desk/computer/dry_run.h"

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <sstream>

#include "app/direct_install.h"
#include "app/install_app.h"
#include "app/setup_parameters.h"
#include "catalogue/code_directory.h"
#include "desk/western_text.h"
#include "drivers/driver_installation.h"
#include "platform/ansi_text.h"

namespace {

const std::string programFolder = "C:\\Installer\\";

/// One run on a machine of its own, whose user goes on wherever that is possible.
struct Trial {
    Trial(const DryRunMedia& media, const MachineDescription& description,
          const std::string& choice)
        : machine(machineWith(media, description)), app(*machine) {
        machine->user = [choice](const ShownDialog& dialog) {
            return std::vector{choice, dialog.buttons.front()};
        };
        std::ignore = app.InitInstance();  // how it ended shows in the steps
    }

    /// The dialog that asks for the product type; null where nobody is asked.
    [[nodiscard]] const RunStep* question() const {
        const auto asked = std::ranges::find_if(machine->steps, [](const RunStep& step) {
            return !step.dialog.buttons.empty() && step.dialog.buttons.front() == TEXT_INSTALL;
        });
        return asked == machine->steps.end() ? nullptr : &*asked;
    }

    std::unique_ptr<DescribedMachine> machine;
    CInstallApp app;
};

/// The number behind the program folder's name; 1 where the name is free.
int folderNumber(CInstallApp& app, const std::string& folder) {
    DescribedMachine nothingInstalled;
    InstallationIndex index(nothingInstalled);
    const SetupRequest request{.productCode = app.productCode, .productType = app.productType};
    const std::string free =
        uniqueProgramFolder(programFolderName(app.catalogue, request), app.productNumber, index);
    return folder.size() > free.size() ? std::atoi(&folder[free.size() + 1]) : 1;
}

void convertToUtf8(Json& json) {
    if (json.is_string()) {
        json = toUtf8(json.get<std::string>());
    } else if (json.is_structured()) {
        std::for_each(json.begin(), json.end(), convertToUtf8);
    }
}

Json call(const std::string& program, const std::string& arguments) {
    return {{"program", program}, {"arguments", arguments}};
}

Json shown(const ShownDialog& dialog) {
    const char* const icon = dialog.icon == MessageIcon::Error ? "error" : "warning";
    return {{"title", dialog.title},     {"icon", dialog.icon ? Json(icon) : Json()},
            {"texts", dialog.texts},     {"rows", dialog.rows},
            {"choices", dialog.choices}, {"buttons", dialog.buttons}};
}

/// The fields of a parameter string by name, in their order.
Json parameterFields(const std::string& parameters) {
    Json fields = Json::object();
    std::istringstream rest(parameters);
    char end = ' ';  // of the mode, which goes first
    for (std::string field; std::getline(rest, field, end); end = '`') {
        const std::size_t equals = std::min(field.find('='), field.size());
        fields[field.substr(0, equals)] = equals < field.size() ? field.substr(equals + 1) : "";
    }
    return fields;
}

/// How a run ends that comes to the launch of the setup utility, or to a message in its place.
Json endingOf(Trial& trial, const std::string& choice) {
    const RunStep& last = trial.machine->steps.back();
    Json ending = {{"choice", choice},
                   {"productCode", trial.app.productCode},
                   {"productName", trial.app.productName}};
    if (last.kind != RunStep::Kind::Launch) {
        ending["message"] = shown(last.dialog);
        return ending;
    }
    const Json fields = parameterFields(last.arguments);
    const std::string folder = fields.value("-pf", "");
    const bool isNumbered = trial.question() != nullptr || trial.app.deviceFamily != nullptr;
    ending.update({{"programFolder", folder},
                   {"programFolderNumber", isNumbered ? folderNumber(trial.app, folder) : 1},
                   {"setup", call(last.program, last.arguments)},
                   {"fields", fields}});
    return ending;
}

/// What the buttons of a dialog bring about, that which goes on first.
Json answersOf(const ShownDialog& dialog) {
    const auto answer = [](const std::string& button, const char* outcome, bool goesOn) {
        return Json{
            {"button", button}, {"outcome", outcome}, {"goesOn", goesOn}, {"runs", Json::array()}};
    };
    const std::string& button = dialog.buttons.front();
    if (button == TEXT_INSTALL) {
        return {answer(button, "the chosen type is installed", true),
                answer(TEXT_CANCEL, "the run ends, and nothing is installed", false)};
    }
    if (button == TEXT_UNINSTALL_YES) {
        return {answer(button, "removes what is ticked, one after another", true),
                answer(TEXT_UNINSTALL_NO, "removes nothing", true)};
    }
    if (button == "Yes") {
        return {answer(button, "the run goes on", true), answer("No", "the run ends", false)};
    }
    return Json::array({answer(button, "the run ends", false)});
}

/// A step, and what it is for.
Json described(const RunStep& step) {
    Json json = call(step.program, step.arguments);
    switch (step.kind) {
        case RunStep::Kind::Dialog:
            return {{"kind", "dialog"},
                    {"dialog", shown(step.dialog)},
                    {"answers", answersOf(step.dialog)}};
        case RunStep::Kind::Stop:
            json.update(
                {{"kind", "stop"},
                 {"note",
                  "running copies are ended; the run ends with a message when one cannot be"}});
            return json;
        case RunStep::Kind::Copy:
            return {{"kind", "copy"},
                    {"from", step.program},
                    {"to", step.target},
                    {"note", step.succeeded ? "where that fails, the install log says so and the "
                                              "viewer's own command is run"
                                            : "fails, and the viewer's own command is run"}};
        case RunStep::Kind::Log:
            return {{"kind", "log"}, {"line", step.target}, {"note", "into the install log"}};
        case RunStep::Kind::Wait:
            return {
                {"kind", "wait"},
                {"seconds", step.seconds},
                {"note", "at most so long, while the uninstaller's \"liveimport.ini\" is there"}};
        case RunStep::Kind::Run:
        case RunStep::Kind::Launch:
            break;
    }
    json.update({{"kind", "run"}, {"note", "unpacks drivers"}});
    return json;
}

/// The steps; what a prompt brought about goes to its first answer.
Json describedSteps(Trial& trial, const DryRunMedia& media, const std::vector<RunStep>& steps) {
    const std::vector<InstalledProduct> viewers = installedViewers(*trial.machine->localMachine());
    std::size_t viewer = 0;  // how many of them the run has come to
    Json result = Json::array();
    for (const RunStep& step : steps) {
        if (step.whilePrompted) {
            if (step.kind == RunStep::Kind::Run) {
                result.back()["answers"][0]["runs"].push_back(call(step.program, step.arguments));
            }
            continue;
        }
        Json one = described(step);
        viewer += step.kind == RunStep::Kind::Stop ? 1 : 0;
        if (step.kind == RunStep::Kind::Run &&
            !lowerCase(step.program).ends_with(extractionToolFile)) {
            // Of a driver installer, only the end of its path is known.
            one["kind"] = viewer > 0 ? "run" : "runReported";
            one["note"] = viewer > 0 ? "removes " + viewers[viewer - 1].displayName
                                     : "where " + media.sourceDirectory + "report.txt names it";
        }
        result.push_back(std::move(one));
    }
    return result;
}

/// Why the run leaves out an entry that is of the product.
const std::map<EntryState, std::string> reasons = {
    {EntryState::NoVersion,
     "its \"DisplayVersion\" is missing or is not four numbers with dots between"},
    {EntryState::TooOld, "its version is not above 10"},
    {EntryState::NoUninstaller, "it gives no \"UninstallString\" of at most 259 characters"},
    {EntryState::NoInstallLocation, "it gives no \"InstallLocation\" of at most 259 characters"}};

/// What support asks about first: such entries, and uninstallers that the run cannot start.
void noteEntries(Trial& trial, const InstallPlan& plan, std::vector<std::string>& notes) {
    std::string filter = makerFilter;
    if (plan.olderVersions == OlderVersions::Leave ||
        (plan.olderVersions == OlderVersions::OfProduct &&
         !findDirectoryName(plan.productNumber, filter))) {
        return;
    }
    const std::unique_ptr<KeyReader> root = trial.machine->localMachine();
    for (const auto& [path, values] : trial.machine->registry.keys) {
        std::unique_ptr<KeyReader> entry;
        InstalledProduct product;
        const bool isEntry = isBelow(path, uninstallListKey) &&
                             path.find('\\', sizeof uninstallListKey) == std::string::npos;
        if (!isEntry || root->openSubkey(path.c_str(), entry) != errorSuccess) {
            continue;
        }
        const EntryState state = readEntry(*entry, filter, product);
        if (const auto reason = reasons.find(state); reason != reasons.end()) {
            notes.push_back(inQuotes(product.displayName) + " is not found: " + reason->second +
                            '.');
        }
        if (state == EntryState::Reported &&
            isMissingProgram(*trial.machine, product.uninstallString)) {
            notes.push_back(inQuotes(product.displayName) +
                            " is not removed: " + inQuotes(product.uninstallString) +
                            " as a whole is not the path of a program.");
        }
    }
}

void noteDrivers(const InstallPlan& plan, int systemCode, std::vector<std::string>& notes) {
    if (plan.deviceFamily == nullptr || plan.route == Route::EndSilently) {
        return;
    }
    for (const DriverPackage& package : plan.deviceFamily->packages) {
        if (!appliesTo(package, systemCode)) {
            notes.push_back("The drivers in " + package.archive +
                            " are not for this Windows and are left out.");
        }
    }
}

/// One for each choice of the last dialog.
Json endingsOf(Trial& trial, const DryRunMedia& media, const MachineDescription& description) {
    const RunStep* const question = trial.question();
    Json endings = Json::array({endingOf(trial, question == nullptr ? "" : TEXT_LIVE_PRODUCT)});
    for (std::size_t choice = 1; question != nullptr && choice < question->dialog.choices.size();
         ++choice) {
        const std::string& label = question->dialog.choices[choice];
        Trial other(media, description, label);
        endings.push_back(endingOf(other, label));
    }
    return endings;
}

std::string earlyEndOf(const Trial& trial, const InstallPlan& plan) {
    if (trial.app.title.empty()) {
        return trial.machine->administrator ? "The run ends: this Windows is refused."
                                            : "The run ends: the user is no administrator.";
    }
    return plan.route == Route::EndSilently
               ? "The run ends here without a word, and nothing is installed: that is how this "
                 "product's media are made."
               : "";
}

}  // namespace

std::unique_ptr<DescribedMachine> machineWith(const DryRunMedia& media,
                                              const MachineDescription& description) {
    auto machine = std::make_unique<DescribedMachine>();
    const std::string folder = withTrailingBackslash(media.sourceDirectory);
    machine->commandLine = {programFolder + "Install.exe", "-dir", media.sourceDirectory};
    machine->identity = media.identity;
    machine->administrator = description.administrator;
    machine->facts = description.facts;
    machine->wow64 = description.is64Bit;
    machine->programFiles = description.programFiles;
    machine->registry.keys = description.registry;
    machine->files[media.sourceDirectory] = {.kind = PathKind::Directory};
    for (const std::string& name : media.files) {
        machine->files[folder + name] = {};
    }
    for (const auto& [name, content] : media.productData) {
        machine->files[programFolder + name] = {.content = content};
    }
    // The descriptions tell nothing of the disk: whatever is to be run is taken to be there, and an
    // uninstaller that leaves a marker to be at work for ever.
    machine->otherPaths = [folder](const std::string& path) {
        const bool onMedia = equalIgnoringCase(path.substr(0, folder.size()), folder);
        const std::string name = lowerCase(path);
        // One with arguments is no program's path, whatever ends it.
        const bool isProgram = name.ends_with(".exe") && name.find(".exe ") == std::string::npos;
        const bool isTaken = isProgram || name.ends_with("\\liveimport.ini");
        return isTaken && !onMedia ? PathKind::File : PathKind::Inaccessible;
    };
    // Where the tool puts the driver installer, its archive alone knows.
    machine->programs[folder + extractionToolFile] = {
        .writes = {
            {folder + "report.txt", {.content = "\"...\\dpinst_64.exe\" \"...\\dpinst_32.exe\""}}}};
    return machine;
}

Json dryRun(const DryRunMedia& media, const MachineDescription& description) {
    Trial trial(media, description, TEXT_LIVE_PRODUCT);
    CInstallApp& app = trial.app;
    DriverPackageTable drivers;
    buildDriverPackageTable(drivers);
    const InstallPlan plan = planInstallation(media.identity.code, app.catalogue, drivers);
    const std::string earlyEnd = earlyEndOf(trial, plan);
    std::vector<std::string> notes = description.notes;
    std::vector<RunStep> common = trial.machine->steps;
    Json endings = Json::array();
    if (earlyEnd.empty()) {
        common.pop_back();  // how this way of the run ends
        endings = endingsOf(trial, media, description);
        noteEntries(trial, plan, notes);
    }
    char system[256] = "";
    const int systemCode = operatingSystemName(*trial.machine, system, sizeof system);
    noteDrivers(plan, systemCode, notes);
    const bool removes = std::ranges::any_of(common, &RunStep::whilePrompted);
    const bool isNumbered = std::ranges::any_of(
        endings, [](const Json& ending) { return ending.value("programFolderNumber", 1) > 1; });
    if (removes && isNumbered) {
        notes.emplace_back(
            "Versions that are removed free their program folders: the numbers are those "
            "for \"" TEXT_UNINSTALL_NO "\".");
    }
    Json run = {{"system", system},
                {"systemCode", systemCode},
                {"bits", description.is64Bit ? 64 : 32},
                {"build", app.catalogue.buildVersion()},
                {"title", app.title},
                {"notes", notes},
                {"steps", describedSteps(trial, media, common)},
                {"earlyEnd", earlyEnd.empty() ? Json() : Json(earlyEnd)},
                {"endings", std::move(endings)}};
    convertToUtf8(run);
    return run;
}

void hideArchiveKeys(std::string& text) {
    text = std::regex_replace(text, std::regex("-fzxkey [^ \"]*"), "-fzxkey ...");
}
