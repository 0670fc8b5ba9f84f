#include "desk/computer/machine_description.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "desk/json.h"
#include "desk/western_text.h"
#include "installed/installation_index.h"
#include "installed/installed_product.h"
#include "platform/ansi_text.h"

namespace {

struct Release {
    const char* name;
    std::uint32_t platform;
    // As the installer hears them: the manifest declares no release after Windows 7, so later ones
    // report 6.2.
    std::uint32_t major;
    std::uint32_t minor;
    bool server = false;
    int bits = 64;  ///< when nothing is said
    bool homeServer = false;
    bool r2 = false;
};

constexpr Release releases[] = {
    {.name = "Windows 95", .platform = 1, .major = 4, .minor = 0, .bits = 32},
    {.name = "Windows 98", .platform = 1, .major = 4, .minor = 10, .bits = 32},
    {.name = "Windows Me", .platform = 1, .major = 4, .minor = 90, .bits = 32},
    {.name = "Windows NT 3.51", .platform = 2, .major = 3, .minor = 51, .bits = 32},
    {.name = "Windows NT 4.0", .platform = 2, .major = 4, .minor = 0, .bits = 32},
    {.name = "Windows 2000", .platform = 2, .major = 5, .minor = 0, .bits = 32},
    {.name = "Windows XP", .platform = 2, .major = 5, .minor = 1, .bits = 32},
    {.name = "Windows XP x64", .platform = 2, .major = 5, .minor = 2},
    {.name = "Windows Server 2003",
     .platform = 2,
     .major = 5,
     .minor = 2,
     .server = true,
     .bits = 32},
    {.name = "Windows Server 2003 R2",
     .platform = 2,
     .major = 5,
     .minor = 2,
     .server = true,
     .bits = 32,
     .r2 = true},
    {.name = "Windows Home Server",
     .platform = 2,
     .major = 5,
     .minor = 2,
     .server = true,
     .bits = 32,
     .homeServer = true},
    {.name = "Windows Vista", .platform = 2, .major = 6, .minor = 0},
    {.name = "Windows Server 2008", .platform = 2, .major = 6, .minor = 0, .server = true},
    {.name = "Windows 7", .platform = 2, .major = 6, .minor = 1},
    {.name = "Windows Server 2008 R2", .platform = 2, .major = 6, .minor = 1, .server = true},
    {.name = "Windows 8", .platform = 2, .major = 6, .minor = 2},
    {.name = "Windows 8.1", .platform = 2, .major = 6, .minor = 2},
    {.name = "Windows 10", .platform = 2, .major = 6, .minor = 2},
    {.name = "Windows 11", .platform = 2, .major = 6, .minor = 2},
    {.name = "Windows Server 2012", .platform = 2, .major = 6, .minor = 2, .server = true},
    {.name = "Windows Server 2012 R2", .platform = 2, .major = 6, .minor = 2, .server = true},
    {.name = "Windows Server 2016", .platform = 2, .major = 6, .minor = 2, .server = true},
    {.name = "Windows Server 2019", .platform = 2, .major = 6, .minor = 2, .server = true},
    {.name = "Windows Server 2022", .platform = 2, .major = 6, .minor = 2, .server = true},
};
constexpr const char* ordinaryRelease = "Windows 7";

// Mirror winnt.h and the documentation of GetVersionEx.
constexpr std::uint8_t workstation = 1;
constexpr std::uint8_t domainServer = 3;
constexpr std::uint16_t homeServerSuite = 0x8000;
constexpr std::uint16_t amd64 = 9;
constexpr std::size_t longestServicePack = 127;

/// Where Windows keeps what 32-bit programs see as the key "SOFTWARE".
constexpr std::string_view softwareKey = "SOFTWARE\\";
constexpr std::string_view redirectedKey = "SOFTWARE\\Wow6432Node\\";

bool fail(std::string& error, const std::string& reason) {
    error = reason;
    return false;
}

void setRelease(const Release& release, MachineDescription& machine) {
    OperatingSystemFacts& facts = machine.facts;
    facts.platformId = release.platform;
    facts.majorVersion = facts.extendedMajorVersion = release.major;
    facts.minorVersion = facts.extendedMinorVersion = release.minor;
    facts.productType = release.server ? domainServer : workstation;
    facts.suiteMask = release.homeServer ? homeServerSuite : 0;
    facts.serverR2Metric = release.r2 ? 1 : 0;
}

void setBits(int bits, MachineDescription& machine) {
    machine.is64Bit = bits == 64;
    machine.facts.nativeArchitecture = machine.is64Bit ? amd64 : 0;
    machine.programFiles = machine.is64Bit ? "C:\\Program Files (x86)" : "C:\\Program Files";
}

std::string listed(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "\"" : ", \"") + name + '"';
    }
    return text;
}

/// Keeps what a 32-bit program sees of an export, which may hold both views.
void takeProgramsView(const RegistryKeys& exported, MachineDescription& machine, bool bitsKnown) {
    const auto isRedirected = [](const auto& key) {
        return isBelow(key.first, redirectedKey.substr(0, redirectedKey.size() - 1));
    };
    const bool bothViews = std::any_of(exported.begin(), exported.end(), isRedirected);
    if (bothViews && !bitsKnown) {
        setBits(64, machine);
    }
    if (bothViews) {
        machine.notes.push_back(
            "The export holds \"Wow6432Node\": what stands outside of it a run does not see.");
    } else if (machine.is64Bit && !exported.empty()) {
        machine.notes.push_back(
            "The export holds no \"Wow6432Node\" and is taken for the view of 32-bit programs.");
    }
    for (const auto& [path, values] : exported) {
        std::string seen = path;
        if (bothViews) {
            if (isBelow(path, redirectedKey.substr(0, redirectedKey.size() - 1))) {
                seen = std::string(softwareKey) + path.substr(redirectedKey.size());
            } else if (isBelow(path, softwareKey.substr(0, softwareKey.size() - 1))) {
                continue;
            }
        }
        RegistryValues& kept = machine.registry[seen];
        for (const RegistryValue& value : values.all()) {
            kept.set(value);
        }
    }
}

/// A text of a JSON object; `fallback` when it has none. Any other type is an error.
bool readText(const Json& object, const char* name, std::string& text, std::string& error) {
    const auto member = object.find(name);
    if (member == object.end()) {
        return true;
    }
    if (!member->is_string()) {
        return fail(error, std::string("\"") + name + "\" is not a text");
    }
    text = fromUtf8(member->get_ref<const std::string&>());
    return true;
}

bool readFlag(const Json& object, const char* name, bool& flag, std::string& error) {
    const auto member = object.find(name);
    if (member == object.end()) {
        return true;
    }
    if (!member->is_boolean()) {
        return fail(error, std::string("\"") + name + "\" is neither true nor false");
    }
    flag = member->get<bool>();
    return true;
}

bool readNumber(const Json& object, const char* name, std::uint32_t& number, std::string& error) {
    const auto member = object.find(name);
    if (member == object.end()) {
        return true;
    }
    if (!member->is_number_unsigned() || member->get<std::uint64_t>() > 0xFFFF) {
        return fail(error, std::string("\"") + name + "\" is not a number from 0 to 65535");
    }
    number = member->get<std::uint32_t>();
    return true;
}

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool checkNames(const Json& object, std::initializer_list<std::string_view> names,
                const std::string& where, std::string& error) {
    for (const auto& member : object.items()) {
        if (!isOneOf(member.key(), names)) {
            return fail(error, "\"" + member.key() + "\" is not known" + where);
        }
    }
    return true;
}

bool readNumbers(const Json& numbers, MachineDescription& machine, std::string& error) {
    Release release{.name = "", .platform = 2, .major = 0, .minor = 0};
    if (!checkNames(numbers, {"platform", "major", "minor", "server", "homeServer", "r2"},
                    " in \"windows\"", error) ||
        !readNumber(numbers, "platform", release.platform, error) ||
        !readNumber(numbers, "major", release.major, error) ||
        !readNumber(numbers, "minor", release.minor, error) ||
        !readFlag(numbers, "server", release.server, error) ||
        !readFlag(numbers, "homeServer", release.homeServer, error) ||
        !readFlag(numbers, "r2", release.r2, error)) {
        return false;
    }
    machine.windows = "Windows that reports " + std::to_string(release.major) + "." +
                      std::to_string(release.minor);
    setRelease(release, machine);
    return true;
}

/// Adds the members of `object`, but for those in `others`, as texts of the key.
bool addKey(const Json& object, const std::string& path,
            std::initializer_list<std::string_view> others, RegistryKeys& keys,
            std::string& error) {
    RegistryValues& values = keys[path];
    for (const auto& member : object.items()) {
        if (isOneOf(member.key(), others)) {
            continue;
        }
        if (!member.value().is_string()) {
            return fail(error, "\"" + member.key() + "\" is not a text");
        }
        values.set(registryText(fromUtf8(member.key()),
                                fromUtf8(member.value().get_ref<const std::string&>())));
    }
    return true;
}

/// The objects of a list; an error for anything else.
bool readObjects(const Json& document, const char* name,
                 const std::function<bool(const Json& object, std::size_t number)>& read,
                 std::string& error) {
    const auto list = document.find(name);
    if (list == document.end()) {
        return true;
    }
    if (!list->is_array()) {
        return fail(error, std::string("\"") + name + "\" is not a list");
    }
    std::size_t number = 0;
    for (const Json& object : *list) {
        if (!object.is_object()) {
            return fail(error, std::string("\"") + name + "\" holds something that is no object");
        }
        if (!read(object, ++number)) {
            return false;
        }
    }
    return true;
}

/// A name for a key that has none, in the order of the numbers.
std::string numberedKey(std::size_t number) {
    char name[32];
    std::snprintf(name, sizeof name, "entry %08zu", number);
    return name;
}

bool readRegistry(const Json& document, MachineDescription& machine, std::string& error) {
    const auto readEntry = [&](const Json& entry, std::size_t number) {
        std::string key = numberedKey(number);
        return readText(entry, "key", key, error) &&
               addKey(entry, std::string(uninstallListKey) + '\\' + key, {"key"}, machine.registry,
                      error);
    };
    const auto readInstallation = [&](const Json& installation, std::size_t number) {
        std::string key = numberedKey(number);
        bool older = false;
        return readText(installation, "key", key, error) &&
               readFlag(installation, "older", older, error) &&
               addKey(installation, (older ? olderMakerTree : makerTree) + key, {"key", "older"},
                      machine.registry, error);
    };
    return readObjects(document, "installed", readEntry, error) &&
           readObjects(document, "installations", readInstallation, error);
}

void readExport(std::string_view content, const std::string& name, bool bitsKnown,
                MachineDescription& machine) {
    RegistryKeys keys;
    std::vector<std::string> problems;
    readRegistryExport(content, keys, problems);
    for (const std::string& problem : problems) {
        machine.notes.push_back(name + ": " + problem);
    }
    takeProgramsView(keys, machine, bitsKnown);
}

bool readJson(const Json& document, const NamedFileReader& readFile, const MachineChoices& choices,
              MachineDescription& machine, std::string& error) {
    if (!checkNames(document,
                    {"windows", "servicePack", "bits", "administrator", "programFiles", "installed",
                     "installations", "registry"},
                    "", error)) {
        return false;
    }
    MachineChoices chosen = choices;
    const auto windows = document.find("windows");
    const bool named = windows != document.end() && windows->is_string();
    if (windows != document.end() && !named && !windows->is_object()) {
        return fail(error, "\"windows\" is neither a release's name nor its numbers");
    }
    if (named && chosen.windows.empty()) {
        chosen.windows = windows->get<std::string>();
    }
    std::uint32_t bits = static_cast<std::uint32_t>(chosen.bits);
    if (bits == 0 && !readNumber(document, "bits", bits, error)) {
        return false;
    }
    if (bits != 0 && bits != 32 && bits != 64) {
        return fail(error, "\"bits\" is neither 32 nor 64");
    }
    chosen.bits = static_cast<int>(bits);
    if (!emptyMachine(chosen, machine, error) ||
        (windows != document.end() && !named && choices.windows.empty() &&
         !readNumbers(*windows, machine, error)) ||
        !readText(document, "servicePack", machine.facts.servicePack, error) ||
        !readFlag(document, "administrator", machine.administrator, error) ||
        !readRegistry(document, machine, error)) {
        return false;
    }
    std::string registryFile;
    if (!readText(document, "registry", registryFile, error)) {
        return false;
    }
    if (!registryFile.empty()) {
        const std::optional<std::string> content = readFile(registryFile);
        if (!content) {
            return fail(error, "cannot read the export \"" + registryFile + '"');
        }
        if (!isRegistryExport(*content)) {
            return fail(error, '"' + registryFile + "\" is not what regedit exports");
        }
        readExport(*content, registryFile, bits != 0, machine);
    }
    if (machine.facts.servicePack.size() > longestServicePack) {
        machine.facts.servicePack.resize(longestServicePack);
    }
    return readText(document, "programFiles", machine.programFiles, error);
}

}  // namespace

std::vector<std::string> knownReleases() {
    std::vector<std::string> names;
    for (const Release& release : releases) {
        names.push_back(release.name);
    }
    return names;
}

bool emptyMachine(const MachineChoices& choices, MachineDescription& machine, std::string& error) {
    machine = {};
    machine.windows = choices.windows.empty() ? ordinaryRelease : choices.windows;
    for (const Release& release : releases) {
        if (equalIgnoringCase(release.name, machine.windows)) {
            machine.windows = release.name;
            setRelease(release, machine);
            setBits(choices.bits == 0 ? release.bits : choices.bits, machine);
            return true;
        }
    }
    return fail(error, '"' + machine.windows + "\" is no release that is known; there are " +
                           listed(knownReleases()));
}

bool readMachine(std::string_view description, const NamedFileReader& readFile,
                 const MachineChoices& choices, MachineDescription& machine, std::string& error) {
    if (isRegistryExport(description)) {
        if (!emptyMachine(choices, machine, error)) {
            return false;
        }
        if (choices.windows.empty()) {
            machine.notes.push_back("An export does not tell the release; it is taken for " +
                                    machine.windows + ".");
        }
        readExport(description, "the export", choices.bits != 0, machine);
        return true;
    }
    const Json document = Json::parse(description, nullptr, false, true);
    if (document.is_discarded() || !document.is_object()) {
        return fail(error, "it is neither a JSON object nor what regedit exports");
    }
    return readJson(document, readFile, choices, machine, error);
}
