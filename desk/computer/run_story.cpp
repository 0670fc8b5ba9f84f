#include "desk/computer/run_story.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "app/direct_install.h"
#include "app/environment.h"
#include "app/setup_parameters.h"
#include "catalogue/code_directory.h"
#include "catalogue/product_code.h"
#include "catalogue/program_texts.h"
#include "drivers/driver_installation.h"
#include "installed/installation_index.h"
#include "platform/ansi_text.h"
#include "platform/format_text.h"
#include "ui/ask_uninstall_dialog.h"
#include "ui/dialog_texts.h"
#include "ui/product_type.h"

namespace {

StoryDialog messageBox(const Message& message) {
    StoryDialog dialog{applicationName, message.icon, {message.text}, {}, {}, {}};
    if (message.buttons == MessageButtons::YesNo) {
        dialog.buttons = {"Yes", "No"};
    } else {
        dialog.buttons = {"OK"};
    }
    return dialog;
}

/// The steps in the order of the run; each function stands for a step of the install sequence.
class Teller {
  public:
    Teller(const StoryMedia& media, CProductData& catalogue, const Machine& machine)
        : media(media), catalogue(catalogue), machine(machine) {}

    RunStory tell() {
        story.is64Bit = machine.is64Bit;
        story.productCode = media.productCode;
        story.productName = media.productName;
        story.build = catalogue.buildVersion();
        story.title = installTitle(media.productName, story.build);
        story.notes = machine.notes;
        if (!passesEnvironment()) {
            return std::move(story);
        }
        buildDriverPackageTable(drivers);
        const InstallPlan plan = planInstallation(media.productCode, catalogue, drivers);
        switch (plan.road) {
            case Road::Direct:
                installDirectly();
                break;
            case Road::EndSilently:
                story.earlyEnd =
                    "The run ends here without a word, and nothing is installed: that is how this "
                    "product's media are made.";
                break;
            case Road::HardwareFamily:
            case Road::Ordinary:
                install(plan);
                break;
        }
        return std::move(story);
    }

  private:
    bool passesEnvironment() {
        const OperatingSystemIdentity identity = identifyOperatingSystem(machine.facts);
        char name[256] = "";
        story.systemCode = deliverOperatingSystemName(identity, name, sizeof name);
        story.system = name;
        const EnvironmentPolicy policy =
            environmentPolicy(machine.administrator, story.systemCode, name);
        if (policy.message) {
            addMessage(*policy.message, policy.accepted);
        }
        if (!policy.accepted) {
            story.earlyEnd = machine.administrator ? "The run ends: this Windows is refused."
                                                   : "The run ends: the user is no administrator.";
        }
        return policy.accepted;
    }

    void install(const InstallPlan& plan) {
        if (plan.road == Road::Ordinary) {
            offerUninstall(plan);
        }
        if (plan.driverStep != DriverStep::None) {
            installDrivers(*plan.deviceFamily);
        }
        if (!plan.asksProductType) {
            addEnding("", product_type::live, plan.productNumber);
            return;
        }
        StoryStep step;
        step.dialog.title = story.title;
        step.dialog.texts = {readProgramTexts().hardwarePrompt};
        step.dialog.buttons = {TEXT_INSTALL, TEXT_CANCEL, TEXT_HELP};
        step.answers = {{TEXT_INSTALL, "the chosen type is installed", {}, true},
                        {TEXT_CANCEL, "the run ends, and nothing is installed", {}, false}};
        for (const ProductChoice& choice : offeredChoices(plan)) {
            step.dialog.choices.push_back(choice.label);
        }
        story.steps.push_back(std::move(step));
        for (const ProductChoice& choice : offeredChoices(plan)) {
            addEnding(choice.label, choice.type, plan.productNumber);
        }
    }

    void offerUninstall(const InstallPlan& plan) {
        std::string filter = makerFilter;
        std::vector<InstalledProduct> products;
        if (plan.olderVersions != OlderVersions::OfMaker &&
            !findDirectoryName(plan.productNumber, filter)) {
            return;
        }
        findInstalledProducts(machine, filter, products);
        if (products.empty()) {
            return;
        }
        const UninstallPromptTexts texts = uninstallPromptTexts(products.size());
        StoryStep step;
        step.dialog = {TEXT_UNINSTALL_CAPTION,
                       std::nullopt,
                       {texts.found, texts.question},
                       {},
                       {TEXT_SELECT_ALL},
                       {TEXT_UNINSTALL_YES, TEXT_UNINSTALL_NO}};
        for (const InstalledProduct& product : products) {
            step.dialog.rows.push_back(product.displayName);
        }
        std::stable_sort(step.dialog.rows.begin(), step.dialog.rows.end(),
                         [](const std::string& left, const std::string& right) {
                             return compareLowerCaseNames(lowerCase(left), lowerCase(right),
                                                          ascendingOrder) < 0;
                         });
        step.answers = {{TEXT_UNINSTALL_YES, "removes what is ticked, one after another", {}},
                        {TEXT_UNINSTALL_NO, "removes nothing", {}}};
        for (const std::string& command : uninstallCommands(step.dialog.rows, products)) {
            step.answers[0].runs.push_back({command, ""});
        }
        story.steps.push_back(std::move(step));
        removesVersions = true;
    }

    void installDrivers(const DeviceFamily& family) {
        for (const DriverPackage& package : family.packages) {
            if (!appliesTo(package, story.systemCode)) {
                story.notes.push_back("The drivers in " + package.archive +
                                      " are not for this Windows and are left out.");
                continue;
            }
            const std::string folder = extractionFolder(package.targetFolder, machine.programFiles);
            const ExtractionCommand command =
                extractionCommand(media.sourceDirectory, package.archive, family.dataKey, folder);
            addStep(StoryStep::Kind::Run, {command.tool, command.arguments},
                    media.holds(extractionToolFile)
                        ? "unpacks the drivers in " + package.archive
                        : "missing on the media: Windows says so itself, and the run goes on");
            if (package.runInstaller) {
                addStep(StoryStep::Kind::Reported,
                        {folder + "\\...\\" + driverInstallerName(machine.is64Bit), ""},
                        "where " + command.report + " names it");
            }
        }
    }

    void installDirectly() {
        const auto find = [this](const std::string& filter,
                                 std::vector<InstalledProduct>& products) {
            findInstalledProducts(machine, filter, products);
        };
        for (const InstalledProduct& product : installedViewers(find)) {
            const ViewerRemoval removal =
                planViewerRemoval(product.uninstallString, media.sourceDirectory);
            addStep(StoryStep::Kind::Stop, {analyserPath(product), ""},
                    "running copies are ended; the run ends with a message when one cannot be");
            const bool replaced = removal.runsSetup && media.holds(replacementUninstallerFile);
            if (replaced) {
                addStep(StoryStep::Kind::Copy, {removal.copyFrom, removal.copyTo},
                        "where that fails, the install log says so and the viewer's own command "
                        "is run");
            }
            addStep(StoryStep::Kind::Run,
                    replaced ? StoryCommand{removal.copyTo, ""}
                             : StoryCommand{removal.program, removal.arguments},
                    "removes " + product.displayName);
        }
        StoryEnding ending;
        ending.productCode = media.productCode;
        ending.productName = media.productName;
        const std::string parameters =
            directSetupParameters(catalogue, media.productCode, media.sourceDirectory);
        for (const auto& [name, value] : parameterFields(parameters)) {
            if (name == "-pf") {
                ending.programFolder = value;
            }
        }
        handOver(std::move(ending), parameters);
    }

    void addEnding(const char* label, unsigned productType, int productNumber) {
        StoryEnding ending;
        ending.choice = label;
        ending.productCode = media.productCode;
        ending.productName = media.productName;
        if (productType == product_type::demonstration &&
            !switchToDemonstration(catalogue, ending.productCode, ending.productName,
                                   productNumber)) {
            ending.message = messageBox(invalidInstallerMessage(ending.productCode));
            story.endings.push_back(std::move(ending));
            return;
        }
        const SetupRequest request{ending.productCode,    productNumber,  productType, "",
                                   media.sourceDirectory, machine.is64Bit};
        const std::vector<InstallationRecord> installations = installationsOf(machine);
        int tried = 0;
        const auto isTaken = [&](const std::string& name) {
            std::vector<std::size_t> matches;
            ++tried;
            return findInstallations(installations, name, installation_selector::programFolder,
                                     matches);
        };
        ending.programFolder =
            uniqueProgramFolder(programFolderName(catalogue, request), productNumber, isTaken);
        ending.programFolderNumber = tried;
        if (tried > 1 && removesVersions) {
            noteOnce(
                "Versions that are removed free their program folders: the numbers are those "
                "for \"" TEXT_UNINSTALL_NO "\".");
        }
        const std::string parameters = setupParameters(catalogue, request, ending.programFolder);
        handOver(std::move(ending), parameters);
    }

    void handOver(StoryEnding ending, const std::string& parameters) {
        const std::string path = formatCut("%s%s", media.sourceDirectory.c_str(), setupUtilityFile);
        if (media.holds(setupUtilityFile)) {
            ending.setup = {path, parameters};
        } else {
            ending.message = messageBox(setupMissingMessage(path));
        }
        story.endings.push_back(std::move(ending));
    }

    void addMessage(const Message& message, bool goesOn) {
        StoryStep step;
        step.dialog = messageBox(message);
        if (message.buttons == MessageButtons::YesNo) {
            step.answers = {{"Yes", "the run goes on", {}, goesOn},
                            {"No", "the run ends", {}, false}};
        } else {
            step.answers = {{"OK", "the run ends", {}, goesOn}};
        }
        story.steps.push_back(std::move(step));
    }

    void addStep(StoryStep::Kind kind, StoryCommand command, std::string note) {
        StoryStep step;
        step.kind = kind;
        step.command = std::move(command);
        step.note = std::move(note);
        story.steps.push_back(std::move(step));
    }

    void noteOnce(const std::string& note) {
        if (std::find(story.notes.begin(), story.notes.end(), note) == story.notes.end()) {
            story.notes.push_back(note);
        }
    }

    const StoryMedia& media;
    CProductData& catalogue;
    const Machine& machine;
    DriverPackageTable drivers;
    RunStory story;
    bool removesVersions = false;
};

}  // namespace

std::vector<ProductChoice> offeredChoices(const InstallPlan& plan) {
    std::vector<ProductChoice> choices;
    if (plan.asksProductType) {
        choices.push_back({TEXT_LIVE_PRODUCT, product_type::live});
    }
    if (plan.offersFileViewer) {
        choices.push_back({TEXT_FILE_VIEWER, product_type::viewer});
    }
    if (plan.offersDemonstration) {
        choices.push_back({TEXT_DEMONSTRATION, product_type::demonstration});
    }
    return choices;
}

RunStory tellRun(const StoryMedia& media, CProductData& catalogue, const Machine& machine) {
    return Teller(media, catalogue, machine).tell();
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
