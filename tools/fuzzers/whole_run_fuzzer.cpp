// A computer made of the input, hostile in all that a run reads of it, and the whole run on it.
// What must hold whatever a computer holds is required.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <set>
#include <tuple>

#include "app/direct_install.h"
#include "app/install_app.h"
#include "app/setup_parameters.h"
#include "catalogue/product_names.h"
#include "desk/computer/described_machine.h"
#include "desk/executables/stamp_image.h"
#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

namespace {

const std::string media = "E:\\m`1\\";  // a backquote, which the string takes over
const std::string usualProgramFiles = "C:\\P";

class HostileMachine : public DescribedMachine {
  public:
    explicit HostileMachine(std::string_view bytes)
        : input(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) {
        static const CProductData catalogue;
        const auto& [code, name] = *std::next(
            catalogue.ProductNames.begin(),
            input.ConsumeIntegralInRange<int>(0, std::ssize(catalogue.ProductNames) - 1));
        identity = {stampedCode(catalogue, code), name};
        if (rarely()) {
            identity = {text().substr(0, 7), text().substr(0, 103)};
        }
        commandLine = {media + "Install.exe", "-dir", media};
        while (rarely()) {
            commandLine.push_back(oneOf({"-dir", "-installdir", media, "E:\\other"}));
        }
        administrator = !rarely();
        wow64 = input.ConsumeBool();
        programFiles = rarely() ? text() : usualProgramFiles;
        facts = {.platformId = 2, .majorVersion = 6, .minorVersion = 1, .productType = 1};
        if (rarely()) {
            facts.majorVersion = input.ConsumeIntegral<std::uint8_t>();
            facts.minorVersion = input.ConsumeIntegral<std::uint8_t>();
            facts.productType = input.ConsumeIntegral<std::uint8_t>();
        }
        fillFiles();
        fillUninstallList();
        fillIndex();
        user = [this](const ShownDialog& dialog) {
            std::vector<std::string> actions;
            for (const auto* labels : {&dialog.rows, &dialog.choices}) {
                std::copy_if(labels->begin(), labels->end(), std::back_inserter(actions),
                             [this](const std::string&) { return input.ConsumeBool(); });
            }
            const std::size_t button = rarely() ? 1 : 0;
            actions.push_back(dialog.buttons[std::min(button, dialog.buttons.size() - 1)]);
            return actions;
        };
    }

  private:
    bool rarely() { return input.ConsumeIntegral<std::uint8_t>() > 0xF0; }
    std::string text() { return input.ConsumeRandomLengthString(300); }
    std::string oneOf(std::initializer_list<const std::string> texts) {
        return input.PickValueInArray(texts);
    }

    void fillFiles() {
        files[media] = {.kind = PathKind::Directory};
        for (const char* const name : {setupUtilityFile, "flatten.exe", replacementUninstallerFile,
                                       "SerialTavlinkDrivers.fzx", "CorvaneTavlinkDrivers.fzx"}) {
            if (!rarely()) {
                files[media + name] = {};
            }
        }
        for (const char* const name : {"ProductData.ini", "ProductData.inx"}) {
            if (rarely()) {
                files[media + name].content =
                    input.ConsumeBool() ? "[Version Number]\r\nVersion Number=" + text() : text();
            }
        }
        const std::string installer =
            oneOf({"dpinst_64.exe", "dpinst_32.exe", "x\\..\\dpinst_64.exe", ""});
        const std::string folder = usualProgramFiles + "\\Halvick Test System II\\Drivers\\";
        files[folder + installer] = {};
        programs[media + "flatten.exe"].writes[media + "report.txt"].content =
            rarely() ? text() : "\"" + installer + "\"";
        for (const std::string& program : {media + setupUtilityFile, media + "flatten.exe"}) {
            if (rarely()) {
                programs[program].failure = {
                    .instance = input.ConsumeIntegralInRange<std::uintptr_t>(0, 33),
                    .lastError = input.ConsumeIntegral<std::uint16_t>()};
            }
        }
    }

    RegistryValue value(const std::string& data) {
        RegistryValue made = registryText(data);
        if (rarely()) {
            made.type = input.ConsumeIntegralInRange<std::uint32_t>(0, 11);
        }
        if (rarely()) {
            made.data = text();
        }
        return made;
    }

    void failSometimes(const std::string& path) {
        if (rarely()) {
            registry.failures[path] = {
                .open = input.ConsumeIntegralInRange<std::uint32_t>(0, 2) == 1 ? 5u : 0u,
                .count = input.ConsumeIntegralInRange<std::uint32_t>(0, 2) == 1 ? 5u : 0u,
                .enumerate = 234,
                .fromIndex = input.ConsumeIntegralInRange<std::uint32_t>(0, 2)};
        }
    }

    void fillUninstallList() {
        failSometimes(uninstallListKey);
        while (input.ConsumeBool()) {
            const std::string key = uninstallListKey + ("\\" + text());
            RegistryValues& values = registry.keys[key];
            values["DisplayName"] = value(oneOf(
                {protocolViewerName, testSuiteViewerName, "Halvick Tavlink Serial Analyzer", ""}));
            values["DisplayVersion"] = value(oneOf({"11.0.0.0", "10.0.0.0", "12.1", ""}));
            const std::string program = oneOf({"C:\\v\\setup.exe", "C:\\v\\uninst.exe", ""});
            values["UninstallString"] = value(program + oneOf({"", " /x", "\" /x"}));
            values["InstallLocation"] = value(oneOf({"C:\\v", "C:\\v\\", ""}));
            failSometimes(key);
        }
    }

    void fillIndex() {
        while (input.ConsumeBool()) {
            const std::string tree = input.ConsumeBool() ? makerTree : olderMakerTree;
            const std::string key = tree + text();
            for (const char* const name :
                 {"Product Id", "Product Name", "Seinda", "Temp Reference", "Path"}) {
                registry.keys[key][name] = value("x");
            }
            registry.keys[key]["Program Folder"] =
                value(oneOf({"Halvick Tavlink Serial Analyzer", "Bluetooth SIG", "x"}));
            failSometimes(key);
        }
    }

    FuzzedDataProvider input;
};

std::size_t backquotes(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '`'));
}

/// Six fields in their order, five without the bitness, and no backquote that the media's path
/// did not bring.
void requireWholeString(const std::string& parameters, const CInstallApp& app) {
    const bool direct = app.productType != 0 && app.deviceFamily == nullptr &&
                        equalIgnoringCase(app.productCode, "1Q");
    require(parameters.starts_with("/hide_usd -build="));
    require(parameters.size() <= 2048);
    if (parameters.size() == 2048 || backquotes(app.catalogue.buildVersion()) != 0 ||
        backquotes(app.productCode) != 0) {
        return;  // cut off, or spoilt by the media: the tools refuse such a build and such a stamp
    }
    std::size_t at = 0;
    for (const char* const name :
         {"-build=", "`-pid=", "`-pf=", "`-type=", "`-bitness=", "`-tmp="}) {
        const std::size_t found = parameters.find(name, at);
        require((found == std::string::npos) == (direct && name == std::string_view("`-bitness=")));
        at = found == std::string::npos ? at : found;
    }
    require(parameters.ends_with('`'));
    require(backquotes(parameters) == (direct ? 5 : 6) + backquotes(app.sourceDirectory));
}

/// Whether some step of the run may start it: the tool of the media, the driver installer in the
/// folder that it unpacked to, an uninstall command of the registry or what takes its place.
bool mayRun(const RunStep& step, const DescribedMachine& machine,
            const std::set<std::string>& copied) {
    const std::string& program = step.program;
    if (program == media + "flatten.exe" || copied.contains(program)) {
        return true;
    }
    if (program.find("dpinst_") != std::string::npos &&
        program.find("\\Halvick Test System II\\Drivers\\") != std::string::npos) {
        return true;
    }
    return std::ranges::any_of(machine.registry.keys, [&](const auto& key) {
        const RegistryValue* const command = valueIn(key.second, "UninstallString");
        return command != nullptr && command->data.starts_with(program);
    });
}

void requireOrder(const DescribedMachine& machine, const CInstallApp& app) {
    std::set<std::string> copied;
    std::size_t launches = 0;
    for (const RunStep& step : machine.steps) {
        require(machine.administrator || step.kind == RunStep::Kind::Dialog);
        // Behind the launch nothing is done; a failure of it is told.
        require(launches == 0 ||
                (step.kind == RunStep::Kind::Dialog && step.dialog.title == "Error"));
        if (step.kind == RunStep::Kind::Launch) {
            ++launches;
            require(step.program == app.sourceDirectory + setupUtilityFile);
            requireWholeString(step.arguments, app);
        } else if (step.kind == RunStep::Kind::Copy) {
            copied.insert(step.target);
        } else if (step.kind == RunStep::Kind::Run) {
            require(mayRun(step, machine, copied));
        }
    }
}

}  // namespace

void fuzz(std::string_view bytes) {
    HostileMachine machine(bytes);
    CInstallApp app(machine);
    std::ignore = app.InitInstance();
    requireOrder(machine, app);
}
