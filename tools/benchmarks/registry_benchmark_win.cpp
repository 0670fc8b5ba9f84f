// Times the discovery and the index against bare loops of the same reads, on a scratch registry.
// Prints five lines for each, the milliseconds of ours and of the bare loop. Then the most memory
// that the discovery held at a time, in bytes: with a tenth of the entries and the same number of
// products to report, with all entries, and with ten times as many to report.
#include <windows.h>

#include <malloc.h>
#include <shlwapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "app/windows_machine_win.h"
#include "installed/installation_index.h"
#include "installed/installed_product.h"
#include "platform/registry_key_win.h"
#include "tools/benchmarks/benchmark_win.h"

namespace {

std::size_t heldMemory = 0;
std::size_t mostHeldMemory = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    heldMemory += _msize(block);
    mostHeldMemory = std::max(mostHeldMemory, heldMemory);
    return block;
}

void operator delete(void* block) noexcept {
    if (block != nullptr) {
        heldMemory -= _msize(block);
    }
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace {

constexpr const char* scratchKey = "Software\\Installer Benchmark";
constexpr int entryCount = 10000;
constexpr int ownEntryCount = 100;
constexpr int recordCount = 5000;
constexpr int runCount = 5;
constexpr const char* ownName = "Halvick Viewer";
constexpr const char* otherName = "Another Program";

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "registry_benchmark: not everything was found: %s\n", what);
    std::exit(1);
}

using Values = std::vector<std::pair<const char*, std::string>>;

void writeValues(const std::string& key, const Values& values) {
    for (const auto& [name, text] : values) {
        SHSetValueA(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, text.c_str(),
                    static_cast<DWORD>(text.size()) + 1);
    }
}

/// Entries of the uninstall list from `first` to before `end`.
void fillUninstallList(int first, int end, const char* displayName) {
    for (int entry = first; entry < end; ++entry) {
        writeValues(uninstallListKey + ("\\Entry " + std::to_string(entry)),
                    {{"DisplayName", displayName},
                     {"DisplayVersion", "12.0.0.0"},
                     {"UninstallString", "C:\\Program Files\\Program\\uninstall.exe"},
                     {"InstallLocation", "C:\\Program Files\\Program"}});
    }
}

void fillMakerTree() {
    for (int record = 0; record < recordCount; ++record) {
        writeValues(makerTree + ("Installation " + std::to_string(record)),
                    {{"Product Id", "0b"},
                     {"Product Name", "Analyzer"},
                     {"Program Folder", "Halvick Analyzer " + std::to_string(record)},
                     {"Installation Path", "C:\\Analyzer"},
                     {"Seinda", "1"},
                     {"Temp Reference", "C:\\Temp"}});
    }
}

template <class Visit>
void forEachSubkey(const char* path, DWORD nameSize, Visit visit) {
    HKEY parent = nullptr;
    RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &parent);
    char name[1024];
    DWORD length = nameSize;
    for (DWORD index = 0; RegEnumKeyExA(parent, index, name, &length, nullptr, nullptr, nullptr,
                                        nullptr) == ERROR_SUCCESS;
         ++index, length = nameSize) {
        HKEY key = nullptr;
        RegOpenKeyExA(parent, name, 0, KEY_READ, &key);
        visit(key);
        RegCloseKey(key);
    }
    RegCloseKey(parent);
}

void readEntriesBarely() {
    forEachSubkey(uninstallListKey, 260, [](HKEY key) {
        char text[260];
        const auto query = [&](const char* name) {
            DWORD size = sizeof text;
            DWORD type = REG_NONE;
            RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
        };
        query("DisplayName");
        if (text[0] == 'H') {
            query("DisplayVersion");
            query("UninstallString");
            query("InstallLocation");
        }
    });
}

void readRecordsBarely() {
    forEachSubkey(makerTree, 1024, [](HKEY key) {
        DWORD subkeyCount = 0;
        DWORD valueCount = 0;
        RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subkeyCount, nullptr, nullptr,
                         &valueCount, nullptr, nullptr, nullptr, nullptr);
        char name[1024];
        char data[1024];
        LSTATUS result = ERROR_SUCCESS;
        for (DWORD index = 0; result == ERROR_SUCCESS; ++index) {
            DWORD length = sizeof name;
            DWORD size = sizeof data;
            result = RegEnumValueA(key, index, name, &length, nullptr, nullptr,
                                   reinterpret_cast<BYTE*>(data), &size);
        }
        DWORD ignored = 0;
        GetFileVersionInfoSizeA("C:\\Analyzer\\Executables\\Core\\qmx.exe", &ignored);
        GetFileVersionInfoSizeA("\\bin\\release\\qmx.exe", &ignored);
    });
}

/// Alternates the two, so that what else the machine does falls on both.
template <class Measured, class Bare>
void compare(Measured measured, Bare bare) {
    for (int run = 0; run < runCount; ++run) {
        const auto beforeBare = std::chrono::steady_clock::now();
        bare();
        const double bareTime = millisecondsSince(beforeBare);
        const auto before = std::chrono::steady_clock::now();
        measured();
        std::printf("%.2f %.2f\n", millisecondsSince(before), bareTime);
    }
}

/// The most memory that the discovery of so many products held at a time.
unsigned long discoveryMemory(std::size_t expectedCount) {
    const std::size_t heldBefore = heldMemory;
    mostHeldMemory = heldMemory;
    std::vector<InstalledProduct> products;
    std::ignore = findInstalledMakerProducts(*openLocalMachine(), products);
    if (products.size() != expectedCount) {
        fail("discovery");
    }
    return static_cast<unsigned long>(mostHeldMemory - heldBefore);
}

}  // namespace

int main() {
    // A path without a drive, as records have it, is looked for on the drive of the current folder.
    SetCurrentDirectoryA("C:\\");
    HKEY scratch = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, scratchKey, &scratch);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, scratch);
    Machine& machine = windowsMachine();
    fillUninstallList(0, ownEntryCount, ownName);
    fillUninstallList(ownEntryCount, entryCount / 10, otherName);
    const unsigned long memoryOfFew = discoveryMemory(ownEntryCount);
    fillUninstallList(entryCount / 10, entryCount, otherName);
    compare([] { std::ignore = discoveryMemory(ownEntryCount); }, readEntriesBarely);
    fillMakerTree();
    compare(
        [&machine] {
            InstallationIndex index(machine);
            index.load(false);
            if (index.records.size() != recordCount) {
                fail("index");
            }
        },
        readRecordsBarely);
    const unsigned long memoryOfAll = discoveryMemory(ownEntryCount);
    fillUninstallList(ownEntryCount, 10 * ownEntryCount, ownName);
    std::printf("%lu %lu %lu\n", memoryOfFew, memoryOfAll, discoveryMemory(10 * ownEntryCount));
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(scratch);
    SHDeleteKeyA(HKEY_CURRENT_USER, scratchKey);
    return 0;
}
