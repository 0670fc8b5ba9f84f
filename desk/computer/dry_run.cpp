#include "desk/computer/dry_run.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "app/direct_install.h"
#include "app/install_app.h"
#include "app/setup_parameters.h"
#include "catalogue/code_directory.h"
#include "desk/western_text.h"
#include "drivers/driver_installation.h"
#include "installed/installed_product.h"
#include "platform/ansi_text.h"
#include "platform/operating_system.h"
#include "ui/resource.h"

namespace {

const std::string programFolder = "C:\\Installer\\";

bool endsIn(const std::string& text, std::string_view end) {
    return text.size() >= end.size() &&
           equalIgnoringCase(text.substr(text.size() - end.size()), end);
}

/// A user who goes on wherever that is possible, with this choice of the product type.
std::vector<std::string> goesOn(const ShownDialog& dialog, const std::string& choice) {
    return dialog.buttons.front() == TEXT_INSTALL ? std::vector{choice, dialog.buttons.front()}
                                                  : std::vector{dialog.buttons.front()};
}

/// One run on a machine of its own.
struct Trial {
    Trial(const DryRunMedia& media, const MachineDescription& description,
          const std::string& choice)
        : machine(machineWith(media, description)), app(*machine) {
        machine->user = [choice](const ShownDialog& dialog) { return goesOn(dialog, choice); };
        std::ignore = app.InitInstance();  // how it ended shows in the steps
    }

    /// The dialog that asks for the product type; null where nobody is asked.
    [[nodiscard]] const RunStep* question() const {
        const auto asked =
            std::find_if(machine->steps.begin(), machine->steps.end(), [](const RunStep& step) {
                return !step.dialog.buttons.empty() && step.dialog.buttons.front() == TEXT_INSTALL;
            });
        return asked == machine->steps.end() ? nullptr : &*asked;
    }

    std::unique_ptr<DescribedMachine> machine;
    CInstallApp app;
};

/// The number behind the program folder's name; 1 where the name is free.
int folderNumber(Trial& trial, const std::string& folder) {
    DescribedMachine nothingInstalled;
    InstallationIndex index(nothingInstalled);
    const CInstallApp& app = trial.app;
    const SetupRequest request{.productCode = app.productCode, .productType = app.productType};
    const std::string free = uniqueProgramFolder(programFolderName(trial.app.catalogue, request),
                                                 app.productNumber, index);
    int number = 1;
    if (folder.size() > free.size()) {
        std::from_chars(folder.data() + free.size() + 1, folder.data() + folder.size(), number);
    }
    return number;
}

Json listed(const std::vector<std::string>& texts) {
    Json list = Json::array();
    for (const std::string& text : texts) {
        list.push_back(toUtf8(text));
    }
    return list;
}

Json call(const std::string& program, const std::string& arguments) {
    return {{"program", toUtf8(program)}, {"arguments", toUtf8(arguments)}};
}

Json shown(const ShownDialog& dialog) {
    Json icon;
    if (dialog.icon) {
        icon = *dialog.icon == MessageIcon::Error ? "error" : "warning";
    }
    return {{"title", toUtf8(dialog.title)},     {"icon", icon},
            {"texts", listed(dialog.texts)},     {"rows", listed(dialog.rows)},
            {"choices", listed(dialog.choices)}, {"buttons", listed(dialog.buttons)}};
}

/// The fields of a parameter string by name, in their order.
Json parameterFields(const std::string& parameters) {
    Json fields = Json::object();
    std::istringstream rest(toUtf8(parameters));
    std::string field;
    if (std::getline(rest, field, ' ')) {
        fields[field] = "";
    }
    while (std::getline(rest, field, '`')) {
        const std::size_t equals = std::min(field.find('='), field.size());
        fields[field.substr(0, equals)] = equals < field.size() ? field.substr(equals + 1) : "";
    }
    return fields;
}

/// How a run ends that comes to the launch of the setup utility, or to a message in its place.
Json endingOf(Trial& trial, const std::string& choice) {
    const RunStep& last = trial.machine->steps.back();
    Json ending = {{"choice", choice},
                   {"productCode", toUtf8(trial.app.productCode)},
                   {"productName", toUtf8(trial.app.productName)}};
    if (last.kind != RunStep::Kind::Launch) {
        ending["message"] = shown(last.dialog);
        return ending;
    }
    Json fields = parameterFields(last.arguments);
    const std::string folder = fields.value("-pf", "");
    const bool isNumbered = trial.question() != nullptr || trial.app.deviceFamily != nullptr;
    ending["programFolder"] = folder;
    ending["programFolderNumber"] = isNumbered ? folderNumber(trial, fromUtf8(folder)) : 1;
    ending["setup"] = call(last.program, last.arguments);
    ending["fields"] = std::move(fields);
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
    const auto document = [&step](const char* kind, const std::string& note) {
        Json json = call(step.program, step.arguments);
        json.update({{"kind", kind}, {"note", note}});
        return json;
    };
    switch (step.kind) {
        case RunStep::Kind::Dialog:
            return {{"kind", "dialog"},
                    {"dialog", shown(step.dialog)},
                    {"answers", answersOf(step.dialog)}};
        case RunStep::Kind::Stop:
            return document("stop",
                            "running copies are ended; the run ends with a message when one cannot "
                            "be");
        case RunStep::Kind::Copy:
            return {{"kind", "copy"},
                    {"from", toUtf8(step.program)},
                    {"to", toUtf8(step.target)},
                    {"note", step.succeeded ? "where that fails, the install log says so and the "
                                              "viewer's own command is run"
                                            : "fails, and the viewer's own command is run"}};
        case RunStep::Kind::Log:
            return {
                {"kind", "log"}, {"line", toUtf8(step.target)}, {"note", "into the install log"}};
        case RunStep::Kind::Wait:
            return {
                {"kind", "wait"},
                {"seconds", step.seconds},
                {"note", "at most so long, while the uninstaller's \"liveimport.ini\" is there"}};
        case RunStep::Kind::Run:
            return document("run", "unpacks drivers");
        case RunStep::Kind::Launch:
            break;
    }
    return document("launch", "");
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
        if (step.kind == RunStep::Kind::Run && !endsIn(step.program, extractionToolFile)) {
            // Of a driver installer, only the end of its path is known.
            one["kind"] = viewer > 0 ? "run" : "runReported";
            one["note"] = viewer > 0
                              ? "removes " + toUtf8(viewers[viewer - 1].displayName)
                              : "where " + toUtf8(media.sourceDirectory) + "report.txt names it";
        }
        result.push_back(std::move(one));
    }
    return result;
}

std::string reasonOf(EntryState state) {
    switch (state) {
        case EntryState::NoVersion:
            return "its \"DisplayVersion\" is missing or is not four numbers with dots between";
        case EntryState::TooOld:
            return "its version is not above 10";
        case EntryState::NoUninstaller:
            return "it gives no \"UninstallString\" of at most 259 characters";
        case EntryState::NoInstallLocation:
            return "it gives no \"InstallLocation\" of at most 259 characters";
        case EntryState::Reported:
        case EntryState::NoDisplayName:
        case EntryState::OtherProduct:
            break;
    }
    return "";
}

/// What support asks about first: entries of the product that the run leaves out, and uninstallers
/// that it cannot start.
void noteEntries(Trial& trial, const InstallPlan& plan, std::vector<std::string>& notes) {
    std::string filter = makerFilter;
    std::unique_ptr<KeyReader> list;
    if (plan.olderVersions == OlderVersions::Leave ||
        (plan.olderVersions == OlderVersions::OfProduct &&
         !findDirectoryName(plan.productNumber, filter)) ||
        trial.machine->localMachine()->openSubkey(uninstallListKey, list) != errorSuccess) {
        return;
    }
    char name[1024];
    std::uint32_t size = sizeof name;
    for (std::uint32_t index = 0;
         list->enumerateSubkey(index, name, size = sizeof name) != errorNoMoreItems; ++index) {
        std::unique_ptr<KeyReader> entry;
        InstalledProduct product;
        if (list->openSubkey(name, entry) != errorSuccess) {
            continue;
        }
        const EntryState state = readEntry(*entry, filter, product);
        if (const std::string reason = reasonOf(state); !reason.empty()) {
            notes.push_back('"' + product.displayName + "\" is not found: " + reason + '.');
        }
        if (state == EntryState::Reported && isFullPath(product.uninstallString) &&
            trial.machine->pathKind(product.uninstallString) != PathKind::File) {
            notes.push_back('"' + product.displayName + "\" is not removed: \"" +
                            product.uninstallString +
                            "\" as a whole is not the path of a program.");
        }
    }
}

void noteDrivers(const InstallPlan& plan, int systemCode, std::vector<std::string>& notes) {
    if (plan.deviceFamily == nullptr || plan.driverStep == DriverStep::None) {
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
    for (std::size_t choice = 1; question && choice < question->dialog.choices.size(); ++choice) {
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
        return !onMedia && (endsIn(path, ".exe") || endsIn(path, "\\liveimport.ini"))
                   ? PathKind::File
                   : PathKind::Inaccessible;
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
    const bool removes = std::any_of(common.begin(), common.end(),
                                     [](const RunStep& step) { return step.whilePrompted; });
    const bool isNumbered = std::any_of(endings.begin(), endings.end(), [](const Json& ending) {
        return ending.value("programFolderNumber", 1) > 1;
    });
    if (removes && isNumbered) {
        notes.emplace_back(
            "Versions that are removed free their program folders: the numbers are those "
            "for \"" TEXT_UNINSTALL_NO "\".");
    }
    return {{"system", toUtf8(system)},
            {"systemCode", systemCode},
            {"bits", description.is64Bit ? 64 : 32},
            {"build", toUtf8(app.catalogue.buildVersion())},
            {"title", toUtf8(app.title)},
            {"notes", listed(notes)},
            {"steps", describedSteps(trial, media, common)},
            {"earlyEnd", earlyEnd.empty() ? Json() : Json(earlyEnd)},
            {"endings", std::move(endings)}};
}
