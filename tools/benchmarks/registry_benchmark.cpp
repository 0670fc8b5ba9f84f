// Times the discovery and the index against bare loops of the same reads, on a scratch registry.
// Prints the medians of both and their ratio.
#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "installed/installation_index.h"
#include "installed/installed_product_discovery.h"
#include "platform/file_version.h"

namespace {

constexpr const char* scratchKey = "Software\\Installer Benchmark";
constexpr const char* uninstallList = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
constexpr const char* makerTree = "Software\\Halvick Test Equipment";
constexpr int entryCount = 10000;
constexpr int ownEntryCount = 100;
constexpr int recordCount = 5000;
constexpr int runCount = 5;

using Values = std::vector<std::pair<const char*, std::string>>;

void writeValues(const std::string& key, const Values& values) {
    HKEY created = nullptr;
    RegCreateKeyA(HKEY_LOCAL_MACHINE, key.c_str(), &created);
    for (const auto& [name, text] : values) {
        RegSetValueExA(created, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>(text.size() + 1));
    }
    RegCloseKey(created);
}

void fillRegistry() {
    for (int entry = 0; entry < entryCount; ++entry) {
        const bool own = entry % (entryCount / ownEntryCount) == 0;
        writeValues(uninstallList + ("\\Entry " + std::to_string(entry)),
                    {{"DisplayName", own ? "Halvick Viewer" : "Another Program"},
                     {"DisplayVersion", "12.0.0.0"},
                     {"UninstallString", "C:\\Program Files\\Program\\uninstall.exe"},
                     {"InstallLocation", "C:\\Program Files\\Program"}});
    }
    for (int record = 0; record < recordCount; ++record) {
        writeValues(makerTree + ("\\Installation " + std::to_string(record)),
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
    forEachSubkey(uninstallList, 260, [](HKEY key) {
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

void readRecordsBarely(bool withFiles) {
    forEachSubkey(makerTree, 1024, [withFiles](HKEY key) {
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
        if (withFiles) {
            std::string version;
            fileVersionText("C:\\Analyzer\\Executables\\Core\\qmx.exe", version);
            fileVersionText("\\bin\\release\\qmx.exe", version);
        }
    });
}

template <class Work>
double milliseconds(Work work) {
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    work();
    QueryPerformanceCounter(&end);
    return 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(frequency.QuadPart);
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// Alternates the two, so that what else the machine does falls on both.
template <class Measured, class Bare>
void compare(const char* name, Measured measured, Bare bare) {
    std::vector<double> measuredTimes;
    std::vector<double> bareTimes;
    for (int run = 0; run < runCount; ++run) {
        bareTimes.push_back(milliseconds(bare));
        measuredTimes.push_back(milliseconds(measured));
    }
    std::printf("%s: %.1f ms, bare loop %.1f ms, ratio %.2f\n", name, median(measuredTimes),
                median(bareTimes), median(measuredTimes) / median(bareTimes));
}

}  // namespace

/// Exit code 0 when everything that was written was found.
int main() {
    HKEY scratch = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, scratchKey, &scratch);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, scratch);
    fillRegistry();
    std::size_t found = 0;
    std::size_t loaded = 0;
    const auto loadIndex = [&loaded] {
        InstallationIndex index;
        index.load(false);
        loaded = index.records.size();
    };
    compare(
        "discovery over 10000 entries",
        [&found] {
            std::vector<InstalledProduct> products;
            findInstalledMakerProducts(products);
            found = products.size();
        },
        readEntriesBarely);
    compare("index over 5000 records, against registry reads", loadIndex,
            [] { readRecordsBarely(false); });
    compare("index over 5000 records, against registry and file reads", loadIndex,
            [] { readRecordsBarely(true); });
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(scratch);
    SHDeleteKeyA(HKEY_CURRENT_USER, scratchKey);
    return found == ownEntryCount && loaded == recordCount ? 0 : 1;
}
