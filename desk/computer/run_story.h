// The story of a run: what an installer does on a machine, told before it is started. It comes from
// the decisions that the run itself takes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/install_plan.h"
#include "app/message.h"
#include "catalogue/product_catalogue.h"
#include "desk/computer/machine.h"

// Texts are in the ANSI code page, as the run has them.

/// A dialog or message box.
struct StoryDialog {
    std::string title;
    std::optional<MessageIcon> icon;
    std::vector<std::string> texts;
    std::vector<std::string> rows;     ///< of a list, in display order; all are ticked
    std::vector<std::string> choices;  ///< option buttons, of which the first is set; check boxes
    std::vector<std::string> buttons;
};

struct StoryCommand {
    std::string program;
    std::string arguments;
};

/// What a button of a dialog brings about.
struct StoryAnswer {
    std::string button;
    std::string outcome;
    std::vector<StoryCommand> runs;  ///< one after the other, each waited for
    bool goesOn = true;              ///< false: the run ends
};

struct StoryStep {
    enum class Kind {
        Dialog,
        Stop,     ///< running copies of `command.program` are ended
        Copy,     ///< `command.program` is copied to `command.arguments`
        Run,      ///< a program, waited for
        Reported  ///< as Run; only the end of the program's path is known
    };
    Kind kind = Kind::Dialog;
    StoryDialog dialog;
    std::vector<StoryAnswer> answers;  ///< of the dialog, that which goes on first
    StoryCommand command;
    std::string note;
};

/// How a run ends that comes to the hand-over.
struct StoryEnding {
    std::string choice;  ///< label of what was chosen; empty: nobody was asked
    std::string productCode;
    std::string productName;
    std::string programFolder;
    int programFolderNumber = 1;         ///< 1: the name is free and goes without a number
    StoryCommand setup;                  ///< started and not waited for
    std::optional<StoryDialog> message;  ///< shown in place of the hand-over
};

struct RunStory {
    std::string productCode;
    std::string productName;
    std::string build;
    std::string title;
    std::string system;  ///< the release, as the run names it
    int systemCode = 0;
    bool is64Bit = false;
    std::vector<StoryStep> steps;
    /// How the run ends before the hand-over; empty when it does not.
    std::string earlyEnd;
    std::vector<StoryEnding> endings;  ///< one for each choice of the last dialog
    std::vector<std::string> notes;
};

/// A choice of the "Install Product" dialog.
struct ProductChoice {
    const char* label;
    unsigned type;  ///< one bit of product_type
};

/// In the dialog's order; none when the plan does not ask.
[[nodiscard]] std::vector<ProductChoice> offeredChoices(const InstallPlan& plan);

/// What was stamped and what lies on the media.
struct StoryMedia {
    std::string productCode;
    std::string productName;
    std::string sourceDirectory;  ///< the "-dir" to come; ends in a backslash
    std::function<bool(std::string_view name)> holds;
};

/// `catalogue` holds the values of the product-data file.
[[nodiscard]] RunStory tellRun(const StoryMedia& media, CProductData& catalogue,
                               const Machine& machine);

/// The fields of a parameter string, name and value, in their order.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> parameterFields(
    const std::string& parameters);
