// A dry run: what an installer will do on a described machine, found out by running the installer's
// own code there, once for each choice that its user has.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/stamped_identity.h"
#include "desk/computer/described_machine.h"
#include "desk/computer/machine_description.h"

// Texts are in the ANSI code page, as the run has them.

struct ProgramCall {
    std::string program = {};
    std::string arguments = {};
};

/// What a button of a dialog brings about.
struct DialogAnswer {
    std::string button;
    std::string outcome;
    std::vector<ProgramCall> runs = {};  ///< one after the other, each waited for
    bool goesOn = true;                  ///< false: the run ends
};

/// A step that every way of the run has in common.
struct DryRunStep {
    RunStep step;
    std::vector<DialogAnswer> answers = {};  ///< of a dialog, that which goes on first
    std::string note = {};
    bool reported = false;  ///< only the end of the program's path is known
};

/// How a run ends that comes to the launch of the setup utility.
struct DryRunEnding {
    std::string choice = {};  ///< label of what was chosen; empty: nobody was asked
    std::string productCode = {};
    std::string productName = {};
    std::string programFolder = {};
    int programFolderNumber = 1;              ///< 1: the name is free and goes without a number
    ProgramCall setup = {};                   ///< started and not waited for
    std::optional<ShownDialog> message = {};  ///< shown in place of the launch
};

struct DryRun {
    std::string productCode = {};
    std::string productName = {};
    std::string build = {};
    std::string title = {};
    std::string system = {};  ///< the release, as the run names it
    int systemCode = 0;
    bool is64Bit = false;
    std::vector<DryRunStep> steps = {};
    /// How the run ends before the launch; empty when it does not.
    std::string earlyEnd = {};
    std::vector<DryRunEnding> endings = {};  ///< one for each choice of the last dialog
    std::vector<std::string> notes = {};
};

/// What was stamped and what lies on the media.
struct DryRunMedia {
    ProductIdentity identity;
    std::string sourceDirectory;          ///< the "-dir" to come
    std::vector<std::string> files = {};  ///< names of those that a run may need and that are there
    /// Name and content of the product-data files beside the installer, in the order in which a run
    /// looks for them; no content: unreadable.
    std::vector<std::pair<std::string, std::optional<std::string>>> productData = {};
};

/// The machine with the media in it, and the installer about to be started.
[[nodiscard]] std::unique_ptr<DescribedMachine> machineWith(const DryRunMedia& media,
                                                            const MachineDescription& description);

[[nodiscard]] DryRun dryRun(const DryRunMedia& media, const MachineDescription& description);

/// The fields of a parameter string, name and value, in their order.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> parameterFields(
    const std::string& parameters);
