#include "desk/computer/described_machine.h"

#include <algorithm>
#include <utility>

#include "platform/ansi_text.h"
#include "ui/ask_uninstall_dialog.h"
#include "ui/product_type.h"

namespace {

/// The names in the order of the prompt's list.
std::vector<std::string> sortedNames(const std::vector<InstalledProduct>& products) {
    std::vector<std::string> names;
    std::ranges::transform(products, std::back_inserter(names), &InstalledProduct::displayName);
    const auto isBefore = [](const std::string& left, const std::string& right) {
        return compareLowerCaseNames(left, right, ascendingOrder) < 0;
    };
    std::ranges::stable_sort(names, isBefore, lowerCase);
    return names;
}

}  // namespace

PathKind DescribedMachine::pathKind(const std::string& path) {
    if (path.size() >= maximumPathLength && !path.starts_with("\\\\?\\")) {
        return PathKind::Inaccessible;
    }
    if (const DescribedFile* const file = valueIn(files, path)) {
        return file->kind;
    }
    return otherPaths ? otherPaths(path) : PathKind::Inaccessible;
}

std::optional<std::string> DescribedMachine::fileContent(const std::string& path) {
    const DescribedFile* const file = valueIn(files, path);
    const bool readable = file != nullptr && file->kind == PathKind::File && file->content &&
                          file->content->size() <= maximumFileSize;
    return readable ? file->content : std::nullopt;
}

bool DescribedMachine::fileVersion(const std::string& path, std::string& text) {
    const DescribedFile* const file = valueIn(files, path);
    const bool hasVersion = file != nullptr && file->version;
    text = hasVersion ? *file->version : "";
    return hasVersion;
}

std::uint32_t DescribedMachine::copyFile(const std::string& source, const std::string& target) {
    const DescribedFile* const file = valueIn(files, source);
    const std::uint32_t error = copyErrors.contains(target) ? copyErrors.at(target)
                                : file == nullptr           ? errorFileNotFound
                                                            : errorSuccess;
    if (error == 0) {
        files[target] = DescribedFile(*file);
    }
    keep({.kind = RunStep::Kind::Copy,
          .program = source,
          .target = target,
          .succeeded = error == 0});
    return error;
}

std::uint32_t DescribedMachine::stopRunning(const std::string& /*fileName*/,
                                            const std::string& path) {
    const std::uint32_t code = stopResults.contains(path) ? stopResults.at(path) : 0;
    keep({.kind = RunStep::Kind::Stop, .program = path, .succeeded = code == 0});
    return code;
}

void DescribedMachine::pause(std::uint32_t milliseconds) {
    if (steps.empty() || steps.back().kind != RunStep::Kind::Wait) {
        keep({.kind = RunStep::Kind::Wait});
    }
    steps.back().seconds += milliseconds / 1000;
}

bool DescribedMachine::showMessage(const Message& message) {
    const bool asks = message.buttons == MessageButtons::YesNo;
    show(
        {.title = message.title,
         .icon = message.icon,
         .texts = {message.text},
         .buttons = asks ? std::vector<std::string>{"Yes", "No"} : std::vector<std::string>{"OK"}});
    return steps.back().answer == "Yes";
}

void DescribedMachine::offerRemoval(
    const std::vector<InstalledProduct>& products,
    const std::function<void(const std::string& tickedName)>& remove) {
    const UninstallPromptTexts texts = uninstallPromptTexts(products.size());
    const std::vector<std::string> names = sortedNames(products);
    const std::vector<std::string> actions =
        show({.title = TEXT_UNINSTALL_CAPTION,
              .texts = {texts.found, texts.question},
              .rows = names,
              .choices = {TEXT_SELECT_ALL},
              .buttons = {TEXT_UNINSTALL_YES, TEXT_UNINSTALL_NO}});
    std::vector<bool> ticked(names.size(), true);
    bool all = true;
    for (const std::string& action : actions) {
        const auto row = static_cast<std::size_t>(std::ranges::find(names, action) - names.begin());
        if (action == TEXT_SELECT_ALL) {
            all = !all;
            ticked.assign(names.size(), all);
        } else if (row < names.size()) {
            ticked[row] = !ticked[row];
        }
    }
    if (steps.back().answer != TEXT_UNINSTALL_YES) {
        return;
    }
    prompted = true;
    for (std::size_t row = 0; row < names.size(); ++row) {
        if (ticked[row]) {
            remove(names[row]);
        }
    }
    prompted = false;
}

std::optional<unsigned> DescribedMachine::askProductType(const ProductTypeQuestion& question) {
    ShownDialog dialog{.title = question.title,
                       .texts = {question.prompt},
                       .buttons = {TEXT_INSTALL, TEXT_CANCEL, TEXT_HELP}};
    for (const ProductChoice& choice : productChoices) {
        if ((question.offeredTypes & choice.type) != 0) {
            dialog.choices.emplace_back(choice.label);
        }
    }
    unsigned type = product_type::live;
    for (const std::string& action : show(std::move(dialog))) {
        for (const ProductChoice& choice : productChoices) {
            type = action == choice.label ? choice.type : type;
        }
    }
    return steps.back().answer == TEXT_INSTALL ? std::optional(type) : std::nullopt;
}

StartResult DescribedMachine::startProgram(RunStep::Kind kind, const std::string& file,
                                           const std::string& parameters) {
    std::string path = file;
    if (path.size() > 1 && path.front() == '"' && path.back() == '"') {
        path = path.substr(1, path.size() - 2);
    }
    path += pathKind(path) == PathKind::Inaccessible ? ".exe" : "";
    const DescribedProgram* const program = valueIn(programs, path);
    StartResult result{.started = true};
    if (pathKind(path) != PathKind::File) {
        // SE_ERR_FNF is the same number.
        result = {.instance = errorFileNotFound, .lastError = errorFileNotFound};
    } else if (program != nullptr && program->failure) {
        result = *program->failure;
    }
    keep({.kind = kind, .program = file, .arguments = parameters, .succeeded = result.started});
    if (result.started && program != nullptr) {
        for (const auto& [written, content] : program->writes) {
            files[written] = content;
        }
    }
    return result;
}

std::vector<std::string> DescribedMachine::show(ShownDialog dialog) {
    std::vector<std::string> actions = user ? user(dialog) : std::vector<std::string>();
    const bool left = !actions.empty() && std::ranges::count(dialog.buttons, actions.back()) != 0;
    keep({.kind = RunStep::Kind::Dialog,
          .dialog = std::move(dialog),
          .answer = left ? actions.back() : ""});
    return actions;
}

void DescribedMachine::keep(RunStep step) {
    step.whilePrompted = prompted;
    steps.push_back(std::move(step));
}
