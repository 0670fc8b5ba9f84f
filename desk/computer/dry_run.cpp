#include "desk/computer/dry_run.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "app/direct_install.h"
#include "app/install_app.h"
#include "app/setup_parameters.h"
#include "catalogue/code_directory.h"
#include "drivers/driver_installation.h"
#include "installed/installed_product.h"
#include "platform/ansi_text.h"
#include "platform/operating_system.h"
#include "ui/dialog_texts.h"

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

DryRunEnding endingOf(Trial& trial, const std::string& choice) {
    const RunStep& last = trial.machine->steps.back();
    DryRunEnding ending{.choice = choice,
                        .productCode = trial.app.productCode,
                        .productName = trial.app.productName};
    if (last.kind != RunStep::Kind::Launch) {
        ending.message = last.dialog;
        return ending;
    }
    ending.setup = {last.program, last.arguments};
    for (const auto& [name, value] : parameterFields(last.arguments)) {
        if (name == "-pf") {
            ending.programFolder = value;
        }
    }
    if (trial.question() != nullptr || trial.app.deviceFamily != nullptr) {
        ending.programFolderNumber = folderNumber(trial, ending.programFolder);
    }
    return ending;
}

/// Says what the steps are for.
class Annotator {
  public:
    Annotator(Trial& trial, const DryRunMedia& media)
        : viewers(installedViewers(*trial.machine->localMachine())), media(media) {}

    std::vector<DryRunStep> annotated(const std::vector<RunStep>& steps) {
        std::vector<DryRunStep> result;
        for (const RunStep& step : steps) {
            if (step.whilePrompted) {
                if (step.kind == RunStep::Kind::Run) {
                    result.back().answers.front().runs.push_back({step.program, step.arguments});
                }
                continue;
            }
            DryRunStep one{step};
            annotate(one);
            result.push_back(std::move(one));
        }
        return result;
    }

  private:
    void annotate(DryRunStep& one) {
        const RunStep& step = one.step;
        switch (step.kind) {
            case RunStep::Kind::Dialog:
                one.answers = answersOf(step.dialog);
                break;
            case RunStep::Kind::Stop:
                ++viewer;
                one.note =
                    "running copies are ended; the run ends with a message when one cannot be";
                break;
            case RunStep::Kind::Copy:
                one.note = step.succeeded
                               ? "where that fails, the install log says so and the viewer's own "
                                 "command is run"
                               : "fails, and the viewer's own command is run";
                break;
            case RunStep::Kind::Log:
                one.note = "into the install log";
                break;
            case RunStep::Kind::Wait:
                one.note = "at most so long, while the uninstaller's \"liveimport.ini\" is there";
                break;
            case RunStep::Kind::Run:
                annotateProgram(one);
                break;
            case RunStep::Kind::Launch:
                break;
        }
    }

    void annotateProgram(DryRunStep& one) const {
        if (endsIn(one.step.program, extractionToolFile)) {
            one.note = "unpacks drivers";
        } else if (viewer > 0) {
            one.note = "removes " + viewers[viewer - 1].displayName;
        } else {
            one.reported = true;
            one.note = "where " + media.sourceDirectory + "report.txt names it";
        }
    }

    static std::vector<DialogAnswer> answersOf(const ShownDialog& dialog) {
        const std::string& button = dialog.buttons.front();
        if (button == TEXT_INSTALL) {
            return {{button, "the chosen type is installed"},
                    {TEXT_CANCEL, "the run ends, and nothing is installed", {}, false}};
        }
        if (button == TEXT_UNINSTALL_YES) {
            return {{button, "removes what is ticked, one after another"},
                    {TEXT_UNINSTALL_NO, "removes nothing"}};
        }
        if (button == "Yes") {
            return {{button, "the run goes on"}, {"No", "the run ends", {}, false}};
        }
        return {{button, "the run ends", {}, false}};
    }

    const std::vector<InstalledProduct> viewers;
    const DryRunMedia& media;
    std::size_t viewer = 0;  ///< how many of them the run has come to
};

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
void noteEntries(Trial& trial, const std::string& filter, std::vector<std::string>& notes) {
    std::unique_ptr<KeyReader> list;
    if (trial.machine->localMachine()->openSubkey(uninstallListKey, list) != errorSuccess) {
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

DryRun dryRun(const DryRunMedia& media, const MachineDescription& description) {
    Trial trial(media, description, TEXT_LIVE_PRODUCT);
    CInstallApp& app = trial.app;
    DryRun run{.productCode = media.identity.code,
               .productName = media.identity.name,
               .build = app.catalogue.buildVersion(),
               .title = app.title,
               .is64Bit = description.is64Bit,
               .notes = description.notes};
    char system[256] = "";
    run.systemCode = operatingSystemName(*trial.machine, system, sizeof system);
    run.system = system;

    DriverPackageTable drivers;
    buildDriverPackageTable(drivers);
    const InstallPlan plan = planInstallation(media.identity.code, app.catalogue, drivers);
    run.earlyEnd = earlyEndOf(trial, plan);
    std::vector<RunStep> common = trial.machine->steps;
    if (run.earlyEnd.empty()) {
        common.pop_back();  // how this way of the run ends
        run.endings.push_back(
            endingOf(trial, trial.question() == nullptr ? "" : TEXT_LIVE_PRODUCT));
        if (const RunStep* const question = trial.question()) {
            for (std::size_t choice = 1; choice < question->dialog.choices.size(); ++choice) {
                const std::string& label = question->dialog.choices[choice];
                Trial other(media, description, label);
                run.endings.push_back(endingOf(other, label));
            }
        }
        if (plan.olderVersions == OlderVersions::OfMaker) {
            noteEntries(trial, makerFilter, run.notes);
        } else if (std::string name; plan.olderVersions == OlderVersions::OfProduct &&
                                     findDirectoryName(plan.productNumber, name)) {
            noteEntries(trial, name, run.notes);
        }
    }
    run.steps = Annotator(trial, media).annotated(common);
    if (plan.deviceFamily != nullptr && plan.driverStep != DriverStep::None) {
        for (const DriverPackage& package : plan.deviceFamily->packages) {
            if (!appliesTo(package, run.systemCode)) {
                run.notes.push_back("The drivers in " + package.archive +
                                    " are not for this Windows and are left out.");
            }
        }
    }
    const auto removes = [](const RunStep& step) { return step.whilePrompted; };
    const auto numbered = [](const DryRunEnding& ending) { return ending.programFolderNumber > 1; };
    if (std::any_of(common.begin(), common.end(), removes) &&
        std::any_of(run.endings.begin(), run.endings.end(), numbered)) {
        run.notes.emplace_back(
            "Versions that are removed free their program folders: the numbers are those "
            "for \"" TEXT_UNINSTALL_NO "\".");
    }
    return run;
}

std::vector<std::pair<std::string, std::string>> parameterFields(const std::string& parameters) {
    std::vector<std::pair<std::string, std::string>> fields;
    std::size_t at = parameters.find(' ');
    if (at != std::string::npos) {
        fields.emplace_back(parameters.substr(0, at), "");
        ++at;
    }
    while (at < parameters.size()) {
        const std::size_t end = std::min(parameters.find('`', at), parameters.size());
        const std::string field = parameters.substr(at, end - at);
        const std::size_t equals = std::min(field.find('='), field.size());
        fields.emplace_back(field.substr(0, equals),
                            equals < field.size() ? field.substr(equals + 1) : "");
        at = end + 1;
    }
    return fields;
}
