// A machine that an installer is to run on, as a file describes it.
//
// The file is what regedit exports of the keys that a run reads, or JSON, all of it optional:
//
//   {
//     "windows": "Windows 7",             a release's name, or the numbers that it reports:
//                                         {"platform": 2, "major": 6, "minor": 1, "server": false,
//                                          "homeServer": false, "r2": false}
//     "servicePack": "Service Pack 1",
//     "bits": 64,
//     "administrator": true,
//     "programFiles": "C:\\Program Files (x86)",
//     "installed": [                      entries of the uninstall list, in its order
//       {"DisplayName": "...", "DisplayVersion": "12.0.0.0", "UninstallString": "...",
//        "InstallLocation": "..."}],
//     "installations": [                  keys of the maker's registry tree
//       {"key": "Products\\1", "older": false, "Product Id": "04", "Product Name": "...",
//        "Program Folder": "...", "Path": "...", "Seinda": "...", "Temp Reference": "..."}],
//     "registry": "keys.reg"              an export, beside this file
//   }
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/computer/registry_export.h"
#include "platform/operating_system.h"

struct MachineDescription {
    /// What a page calls it.
    std::string name;
    /// How the description calls the release.
    std::string windows;
    /// What Windows answers to the installer.
    OperatingSystemFacts facts;
    bool is64Bit = true;
    bool administrator = true;
    /// The folder of 32-bit programs, without a trailing backslash.
    std::string programFiles;
    /// What a 32-bit program sees of HKEY_LOCAL_MACHINE.
    RegistryKeys registry;
    /// What the reader of a dry run should know about the description.
    std::vector<std::string> notes;
};

/// The releases that a description may name.
[[nodiscard]] std::vector<std::string> knownReleases();

/// What was said on the command line goes before what the file says.
struct MachineChoices {
    std::string windows;
    int bits = 0;  ///< 0: not said
};

/// The content of a file that a description names; nothing when it cannot be read.
using NamedFileReader = std::function<std::optional<std::string>(const std::string& name)>;

/// A machine of this release with nothing installed. False with `error` filled for a release that
/// is not known.
[[nodiscard]] bool emptyMachine(const MachineChoices& choices, MachineDescription& machine,
                                std::string& error);

/// Reads a description. False with `error` filled when it is neither JSON of that form nor an
/// export; whatever the bytes are, this returns.
[[nodiscard]] bool readMachine(std::string_view description, const NamedFileReader& readFile,
                               const MachineChoices& choices, MachineDescription& machine,
                               std::string& error);
