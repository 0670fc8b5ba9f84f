#include "desk/computer/machine_description.h"

#include <algorithm>
#include <utility>

#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "installed/installation_index.h"
#include "installed/installed_product.h"
#include "platform/ansi_text.h"

namespace {

// VER_NT_SERVER of winnt.h, and of the documentation of GetVersionEx.
constexpr std::uint8_t productTypeServer = 3;
constexpr std::size_t longestServicePack = 127;
constexpr char usualRelease[] = "Windows 7";

constexpr std::string_view softwareKey = "SOFTWARE";
/// Where Windows keeps what 32-bit programs see as that key.
constexpr std::string_view redirectedKey = "SOFTWARE\\Wow6432Node";

/// The releases by name, as the installer hears them: its manifest declares no release after
/// Windows 7, so later ones report 6.2.
const Json& releases() {
    static const Json all = Json::parse(
#include "releases.inc"
    );
    return all;
}

std::uint16_t number(const Json& object, const char* name, std::uint16_t otherwise) {
    const Json value = object.value(name, Json(otherwise));
    if (!value.is_number_unsigned() || value > 0xFFFF) {
        refuse(name, "is not a number from 0 to 65535");
    }
    return value;
}

/// Throws Refusal unless `value` is an object whose members all have one of these names.
void requireMembers(const Json& value, const std::string& what,
                    std::initializer_list<std::string_view> names) {
    if (!value.is_object()) {
        throw Refusal(what + " is no object");
    }
    for (const auto& [name, ignored] : value.items()) {
        if (std::ranges::find(names, name) == names.end()) {
            refuse(name, "is not known in " + what);
        }
    }
}

void setRelease(const Json& release, MachineDescription& machine) {
    OperatingSystemFacts& facts = machine.facts;
    facts.platformId = number(release, "platform", platformNt);
    facts.majorVersion = facts.extendedMajorVersion = number(release, "major", 0);
    facts.minorVersion = facts.extendedMinorVersion = number(release, "minor", 0);
    facts.productType = release.value("server", false) ? productTypeServer : productTypeWorkstation;
    facts.suiteMask = release.value("homeServer", false) ? suiteHomeServer : 0;
    facts.serverR2Metric = release.value("r2", false) ? 1 : 0;
}

void setBits(int bits, MachineDescription& machine) {
    machine.is64Bit = bits == 64;
    machine.facts.nativeArchitecture = machine.is64Bit ? architectureAmd64 : 0;
    machine.programFiles = machine.is64Bit ? "C:\\Program Files (x86)" : "C:\\Program Files";
}

/// Reads what a 32-bit program sees of an export, which may hold both views.
void readExport(std::string_view content, const std::string& name, bool bitsKnown,
                MachineDescription& machine) {
    RegistryKeys exported;
    std::vector<std::string> problems;
    readRegistryExport(content, exported, problems);
    for (const std::string& problem : problems) {
        machine.notes.push_back(name + ": " + problem);
    }
    const auto isRedirected = [](const auto& key) { return isBelow(key.first, redirectedKey); };
    const bool bothViews = std::ranges::any_of(exported, isRedirected);
    if (bothViews && !bitsKnown) {
        setBits(64, machine);
    }
    if (bothViews) {
        machine.notes.emplace_back(
            "The export holds \"Wow6432Node\": what stands outside of it a run does not see.");
    } else if (machine.is64Bit && !exported.empty()) {
        machine.notes.emplace_back(
            "The export holds no \"Wow6432Node\" and is taken for the view of 32-bit programs.");
    }
    for (auto& key : exported) {
        std::string path = key.first;
        if (isRedirected(key)) {
            path.replace(0, redirectedKey.size(), softwareKey);
        } else if (bothViews && isBelow(path, softwareKey)) {
            continue;
        }
        key.second.merge(machine.registry[path]);
        machine.registry[path].swap(key.second);
    }
}

/// Adds a key for each object of a list, with a text for each member but those of the description.
void addKeys(const Json& document, const char* list, RegistryKeys& keys,
             std::initializer_list<std::string_view> names) {
    const Json objects = document.value(list, Json());
    if (!objects.is_null() && !objects.is_array()) {
        refuse(list, "is not a list");
    }
    std::size_t index = 0;
    for (const Json& object : objects) {
        requireMembers(object, inQuotes(list), names);
        // A name for a key that has none, in the order of the list.
        const std::string numbered = "entry " + std::to_string(100'000'000 + ++index).substr(1);
        const std::string parent = list == std::string_view("installed")
                                       ? std::string(uninstallListKey) + '\\'
                                   : object.value("older", false) ? olderMakerTree
                                                                  : makerTree;
        RegistryValues& values = keys[parent + fromUtf8(object.value("key", numbered))];
        for (const auto& [name, value] : object.items()) {
            if (name != "key" && name != "older") {
                values[name] = registryText(fromUtf8(value.get<std::string>()));
            }
        }
    }
}

MachineDescription fromJson(const Json& document, const fs::path& folder, MachineChoices choices) {
    requireMembers(document, "the description",
                   {"windows", "servicePack", "bits", "administrator", "programFiles", "installed",
                    "installations", "registry"});
    const Json windows = document.value("windows", Json());
    const bool isChosen = !choices.windows.empty() || windows.is_null();
    if (!isChosen && windows.is_string()) {
        choices.windows = windows;
    }
    choices.bits = choices.bits != 0 ? choices.bits : number(document, "bits", 0);
    if (choices.bits != 0 && choices.bits != 32 && choices.bits != 64) {
        throw Refusal("\"bits\" is neither 32 nor 64");
    }
    MachineDescription machine = emptyMachine(choices);
    if (!isChosen && !windows.is_string()) {
        requireMembers(windows, "\"windows\"",
                       {"platform", "major", "minor", "server", "homeServer", "r2"});
        setRelease(windows, machine);
    }
    machine.facts.servicePack =
        fromUtf8(document.value("servicePack", "")).substr(0, longestServicePack);
    machine.administrator = document.value("administrator", true);
    addKeys(document, "installed", machine.registry,
            {"key", "DisplayName", "DisplayVersion", "UninstallString", "InstallLocation"});
    addKeys(document, "installations", machine.registry,
            {"key", "older", "Product Id", "Product Name", "Program Folder", "Path", "Seinda",
             "Temp Reference", "Lard", "User Data Key", "Old User Data Key", "Version",
             "Installation Path", "Product Character"});
    if (const std::string name = document.value("registry", ""); !name.empty()) {
        const std::string content = readInput(folder / name);
        if (!isRegistryExport(content)) {
            refuse(name, "is not what regedit exports");
        }
        readExport(content, name, choices.bits != 0, machine);
    }
    machine.programFiles = fromUtf8(document.value("programFiles", toUtf8(machine.programFiles)));
    return machine;
}

}  // namespace

MachineDescription emptyMachine(const MachineChoices& choices) {
    const std::string wanted = choices.windows.empty() ? usualRelease : choices.windows;
    std::vector<std::string> known;
    for (const Json& release : releases()) {
        const std::string name = release["name"];
        if (equalIgnoringCase(name, wanted)) {
            MachineDescription machine;
            setRelease(release, machine);
            setBits(choices.bits != 0 ? choices.bits : release.value("bits", 64), machine);
            return machine;
        }
        known.push_back(inQuotes(name));
    }
    refuse(wanted, "is no release that is known; there are " + joined(known));
}

MachineDescription readMachine(const std::string& file, MachineChoices choices) {
    const std::string content = readInput(file);
    MachineDescription machine;
    try {
        if (isRegistryExport(content)) {
            machine = emptyMachine(choices);
            if (choices.windows.empty()) {
                machine.notes.push_back("An export does not tell the release; it is taken for " +
                                        std::string(usualRelease) + '.');
            }
            readExport(content, "the export", choices.bits != 0, machine);
        } else {
            machine = fromJson(Json::parse(content, nullptr, true, true),
                               fs::path(file).parent_path(), std::move(choices));
        }
    } catch (const std::exception& error) {
        throw Refusal(inQuotes(file) + ": " + reasonOf(error) + '.');
    }
    machine.name = fs::path(file).filename().string();
    return machine;
}
