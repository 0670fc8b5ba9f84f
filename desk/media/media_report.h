// What a stamped installer will do with a media folder, and whether all that it needs is there,
// whole and signed; worked out by the installer's own decisions.
#pragma once

#include <string>
#include <vector>

#include "desk/computer/machine_description.h"
#include "desk/executables/signature.h"

/// What is asked of media.
struct MediaChoices {
    std::string directory = "D:\\";  ///< the "-dir" to come
    std::string requiredBuild = {};  ///< empty: any
    SignatureChoices signature = {};
};

/// The report as a document ("media" in docs/formats.md), UTF-8, with a dry run on each machine.
/// The hand-overs in it are those on a machine without other versions. Throws Refusal when the
/// installer cannot be read or the folder is none.
[[nodiscard]] Json examineMedia(const fs::path& installer, const fs::path& folder,
                                const MediaChoices& choices,
                                const std::vector<MachineDescription>& machines);

/// Why the build cannot be handed over, for people: "Setup.Exe" is handed it in a field that a
/// backquote ends, and it becomes a part of a folder's name. Empty when it can.
[[nodiscard]] std::string buildFault(const std::string& build);

/// The report of a folder of which nothing is known.
[[nodiscard]] Json emptyReport(const std::string& folder);

/// What keeps the media from being "complete": a line for each file that is missing or damaged, and
/// each problem.
[[nodiscard]] std::vector<std::string> faultsOf(const Json& report);

/// One line for each finding, and "complete" or "NOT COMPLETE" at the end.
[[nodiscard]] std::string mediaInWords(const Json& report);
