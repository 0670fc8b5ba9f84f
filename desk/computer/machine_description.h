// A machine that an installer is to run on, as a file describes it: what regedit exports of the
// keys that a run reads, or JSON (docs/formats.md).
#pragma once

#include <string>
#include <vector>

#include "desk/computer/registry_export.h"
#include "platform/operating_system.h"

struct MachineDescription {
    std::string name = "nothing installed";  ///< what a page calls it, UTF-8
    OperatingSystemFacts facts;              ///< what Windows answers to the installer
    bool is64Bit = true;
    bool administrator = true;
    std::string programFiles;        ///< of 32-bit programs, without a trailing backslash
    RegistryKeys registry;           ///< what a 32-bit program sees of HKEY_LOCAL_MACHINE
    std::vector<std::string> notes;  ///< for the reader of a dry run
};

/// What was said on the command line goes before what a file says.
struct MachineChoices {
    std::string windows;
    int bits = 0;  ///< 0: not said
};

/// A machine of this release with nothing installed. Throws Refusal when the release is not known.
[[nodiscard]] MachineDescription emptyMachine(const MachineChoices& choices);

/// Throws Refusal when the file is neither JSON of that form nor an export.
[[nodiscard]] MachineDescription readMachine(const std::string& file, MachineChoices choices);
