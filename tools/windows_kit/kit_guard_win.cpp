// Stands between the tests and the machine of whoever runs them.
//
//   kit_guard before    refuses a machine on which the tests could touch what they did not
//                       make, and remembers its list of installed programs in before.txt
//   kit_guard after     removes what the tests can leave behind, and fails when the list of
//                       installed programs is not what it was
//
// The tests make installed versions, confirm their removal and run what their entries name. So
// there must be no product of the maker's on the machine, nor any place that the tests make and
// take away.
#include <windows.h>

#include <shlobj.h>
#include <shlwapi.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/product_names.h"
#include "installed/installation_index.h"
#include "installed/installed_product.h"
#include "platform/files_win.h"
#include "platform/registry_key_win.h"

namespace {

constexpr const char* rememberedFile = "before.txt";

/// The key directly below "Software" that a tree stands in.
std::string topKey(const std::string& tree) {
    return tree.substr(0, tree.find('\\', sizeof "Software"));
}

/// What the tests make, and take away again, below HKEY_LOCAL_MACHINE.
const std::string madeKeys[] = {topKey(makerTree), topKey(olderMakerTree)};

/// Words of the display names that the installer looks for.
constexpr const char* makerWords[] = {makerFilter, "Tavlink", testSuiteViewerName,
                                      protocolViewerName};

/// The tests see the 32-bit view, a machine may have another one beside it.
constexpr REGSAM views[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

std::string folderBelow(int folder, const char* name) {
    char path[MAX_PATH] = "";
    SHGetFolderPathA(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path);
    return std::string(path) + '\\' + name;
}

std::vector<std::string> madeFolders() {
    return {"C:\\end to end", folderBelow(CSIDL_PROGRAM_FILES, "Halvick Test System II"),
            folderBelow(CSIDL_COMMON_DOCUMENTS, "Halvick Test Equipment")};
}

/// Every value of the key and of the keys below it, a line each.
void describe(HKEY parent, const std::string& name, REGSAM view, const std::string& path,
              std::set<std::string>& lines) {
    RegistryKey key;
    if (key.open(parent, name.c_str(), KEY_READ | view) != ERROR_SUCCESS) {
        return;
    }
    lines.insert(path);
    std::vector<char> text(32768), data(65536);
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(text.size()), size = static_cast<DWORD>(data.size());
        const auto result = key.enumerateValue(index, text.data(), length, data.data(), size);
        if (result == ERROR_NO_MORE_ITEMS) {
            break;
        }
        std::string line = path + '\\' + text.data() + " = ";
        for (DWORD byte = 0; result == ERROR_SUCCESS && byte < size; ++byte) {
            line += data[byte] >= ' ' && data[byte] <= '~' ? data[byte] : '.';
        }
        lines.insert(line);
    }
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(text.size());
        if (key.enumerateSubkey(index, text.data(), length) != ERROR_SUCCESS) {
            break;
        }
        describe(key.handle.get(), text.data(), view, path + '\\' + text.data(), lines);
    }
}

std::set<std::string> installedPrograms() {
    std::set<std::string> lines;
    for (const REGSAM view : views) {
        describe(HKEY_LOCAL_MACHINE, uninstallListKey, view,
                 view == KEY_WOW64_32KEY ? "32-bit list" : "64-bit list", lines);
    }
    return lines;
}

/// Why the tests must not run here, a line each.
std::vector<std::string> objections(const std::set<std::string>& programs) {
    std::vector<std::string> found;
    if (RegistryKey().open(HKEY_LOCAL_MACHINE, "Software", KEY_CREATE_SUB_KEY) != ERROR_SUCCESS) {
        found.emplace_back("these tests need an administrator: start run.cmd as one");
    }
    for (const std::string& line : programs) {
        for (const char* word : makerWords) {
            if (line.find(word) != std::string::npos) {
                found.push_back("a product of the maker's is installed: " + line);
                break;
            }
        }
    }
    for (const std::string& name : madeKeys) {
        for (const REGSAM view : views) {
            if (RegistryKey().open(HKEY_LOCAL_MACHINE, name.c_str(), KEY_READ | view) ==
                ERROR_SUCCESS) {
                found.push_back("the key exists: HKEY_LOCAL_MACHINE\\" + name);
                break;
            }
        }
    }
    // The keys of the entries that the tests make.
    for (const std::string& line : programs) {
        const std::size_t name = line.find('\\');
        if (name != std::string::npos && name + 2 == line.size() && line.back() >= 'a' &&
            line.back() <= 'h') {
            found.push_back("the tests would take away an entry of the list: " + line);
        }
    }
    for (const std::string& folder : madeFolders()) {
        if (examinePath(folder) != PathKind::Inaccessible) {
            found.push_back("the folder exists: " + folder);
        }
    }
    return found;
}

int before() {
    const std::set<std::string> programs = installedPrograms();
    const std::vector<std::string> found = objections(programs);
    for (const std::string& objection : found) {
        std::printf("REFUSED: %s\n", objection.c_str());
    }
    if (!found.empty()) {
        return 1;
    }
    std::ofstream file(rememberedFile, std::ios::binary);
    for (const std::string& line : programs) {
        file << line << '\n';
    }
    return file.good() ? 0 : 1;
}

int after() {
    std::ifstream file(rememberedFile, std::ios::binary);
    if (!file) {
        std::puts("nothing is remembered: nothing was run");
        return 1;
    }
    // Safe: there were none before.
    for (const std::string& name : madeKeys) {
        SHDeleteKeyA(HKEY_LOCAL_MACHINE, name.c_str());
    }
    for (const std::string& folder : madeFolders()) {
        if (examinePath(folder) != PathKind::Inaccessible) {
            std::error_code error;
            std::filesystem::remove_all("\\\\?\\" + folder, error);  // has long paths in it
            std::printf("left behind%s: %s\n", error ? "" : " and removed", folder.c_str());
        }
    }
    std::set<std::string> known;
    for (std::string line; std::getline(file, line);) {
        known.insert(line);
    }
    file.close();
    const std::set<std::string> programs = installedPrograms();
    bool changed = false;
    const auto compare = [&changed](const char* change, const auto& these, const auto& those) {
        for (const std::string& line : these) {
            if (!those.contains(line)) {
                std::printf("CHANGED: %s: %s\n", change, line.c_str());
                changed = true;
            }
        }
    };
    compare("no longer there", known, programs);
    compare("was not there", programs, known);
    DeleteFileA(rememberedFile);
    return changed ? 1 : 0;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string_view when = count == 2 ? arguments[1] : "";
    if (when == "before" || when == "after") {
        return when == "before" ? before() : after();
    }
    std::puts("kit_guard before | after");
    return 2;
}
