// The edition that is installed directly: what replaces its older versions, what is run, and what
// is told about it.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "app/message.h"
#include "catalogue/product_names.h"
#include "installed/installed_product.h"

/// In the source directory; takes the place of an old viewer's uninstaller.
inline constexpr const char* replacementUninstallerFile = "UninstallQmx.exe";

/// Full path of an installed product's analyser, at most 260 characters.
[[nodiscard]] std::string analyserPath(const InstalledProduct& product);

/// The file that exists while an installed product's own uninstaller is at work, at most 260
/// characters.
[[nodiscard]] std::string importMarkerPath(const InstalledProduct& product);

/// What removes an installed viewer: its uninstall command, or in its place the uninstaller of the
/// media, copied.
struct ViewerRemoval {
    std::string program;
    std::string arguments;   ///< may be empty
    bool runsSetup = false;  ///< the product's own setup program, cut from its arguments
    // Empty unless the command runs the setup program. Where the copy fails the command stands.
    std::string copyFrom;  ///< at most 260 characters
    std::string copyTo;    ///< beside the setup program, without quotes
};

/// Cuts a command that runs "setup.exe" (of any letter case) behind the name and the character
/// after it, a closing quote, and leaves out the next one, a blank. Kept: neither is looked at,
/// the uninstall lists in the field hold what installers of many years wrote. Any other command
/// is the program as a whole. `sourceDirectory` ends in a backslash.
[[nodiscard]] ViewerRemoval planViewerRemoval(const std::string& uninstallCommand,
                                              const std::string& sourceDirectory);

/// The viewers to remove, in order. `find` appends the installed products whose names contain a
/// filter to a list. Discovery also finds names that only contain a viewer's: nobody is asked, so
/// a product that is not exactly a viewer is left alone.
template <class Find>
[[nodiscard]] std::vector<InstalledProduct> installedViewers(Find find) {
    std::vector<InstalledProduct> viewers;
    for (const char* name : {testSuiteViewerName, protocolViewerName}) {
        std::vector<InstalledProduct> found;
        find(name, found);
        for (InstalledProduct& product : found) {
            if (product.displayName == name) {
                viewers.push_back(std::move(product));
            }
        }
    }
    return viewers;
}

inline constexpr int longestMarkerWait = 180;  // seconds

/// Waits until an uninstaller that leaves its work to a process of its own is done: as long as
/// `exists` says that its marker is there, but not too long. `pause` takes a second.
template <class Exists, class Pause>
void awaitMarkerGone(Exists exists, Pause pause) {
    for (int pauses = 0; pauses < longestMarkerWait && exists(); ++pauses) {
        pause();
    }
}

/// `code` is the result of stopping the product's running copies.
[[nodiscard]] Message couldNotStopMessage(const InstalledProduct& product, std::uint32_t code);

/// A point in time as the clock tells it; mirrors the members of SYSTEMTIME (minwinbase.h) of the
/// same names.
struct SystemTime {
    std::uint16_t year = 0;
    std::uint16_t month = 0;  ///< 1 is January
    std::uint16_t day = 0;
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
};

/// Readable: "2026-01-02 03:04:05"; else `lead` (which the readable form leaves out) and the
/// digits alone. `text` is cut to 32 characters.
void FormatTimestamp(const SystemTime& time, std::string& text, bool readable, char lead);

/// The install log's line, without a line end, about an uninstaller that could not be copied.
/// `error` is Windows' error code, `time` is UTC.
[[nodiscard]] std::string copyFailedLogLine(const SystemTime& time, const std::string& source,
                                            const std::string& target, std::uint32_t error);
