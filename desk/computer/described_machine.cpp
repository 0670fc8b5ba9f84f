#include "desk/computer/described_machine.h"

#include <algorithm>
#include <utility>

#include "platform/ansi_text.h"
#include "ui/ask_uninstall_dialog.h"
#include "ui/resource.h"
#include "ui/product_type.h"

namespace {

constexpr std::uint32_t fileNotFound = 2;  // ERROR_FILE_NOT_FOUND, and SE_ERR_FNF

std::string withoutQuotes(const std::string& path) {
    return path.size() > 1 && path.front() == '"' && path.back() == '"'
               ? path.substr(1, path.size() - 2)
               : path;
}

/// The names in the order of the prompt's list.
std::vector<std::string> sortedNames(const std::vector<InstalledProduct>& products) {
    std::vector<std::string> names;
    for (const InstalledProduct& product : products) {
        names.push_back(product.displayName);
    }
    std::stable_sort(
        names.begin(), names.end(), [](const std::string& left, const std::string& right) {
            return compareLowerCaseNames(lowerCase(left), lowerCase(right), ascendingOrder) < 0;
        });
    return names;
}

}  // namespace

bool PathOrder::operator()(const std::string& left, const std::string& right) const {
    return lowerCase(left) < lowerCase(right);
}

std::unique_ptr<KeyReader> DescribedMachine::localMachine() {
    return describedLocalMachine(registry);
}

std::string DescribedMachine::programPath() {
    return commandLine.empty() ? std::string() : commandLine.front();
}

PathKind DescribedMachine::pathKind(const std::string& path) {
    constexpr std::size_t longestPath = 259;  // MAX_PATH without the terminator
    if (path.size() > longestPath && !path.starts_with("\\\\?\\")) {
        return PathKind::Inaccessible;
    }
    const auto file = files.find(path);
    if (file != files.end()) {
        return file->second.kind;
    }
    return otherPaths ? otherPaths(path) : PathKind::Inaccessible;
}

bool DescribedMachine::isListed(const std::string& path) {
    return files.contains(path);
}

std::optional<std::string> DescribedMachine::fileContent(const std::string& path) {
    const auto file = files.find(path);
    const bool readable = file != files.end() && file->second.kind == PathKind::File &&
                          file->second.content && file->second.content->size() <= maximumFileSize;
    return readable ? file->second.content : std::nullopt;
}

bool DescribedMachine::fileVersion(const std::string& path, std::string& text) {
    const auto file = files.find(path);
    const bool hasVersion = file != files.end() && file->second.version;
    text = hasVersion ? *file->second.version : "";
    return hasVersion;
}

std::uint32_t DescribedMachine::copyFile(const std::string& source, const std::string& target) {
    const auto failing = copyErrors.find(target);
    const auto file = files.find(source);
    std::uint32_t error = failing != copyErrors.end() ? failing->second : 0;
    if (error == 0 && file == files.end()) {
        error = fileNotFound;
    }
    if (error == 0) {
        files[target] = DescribedFile(file->second);
    }
    keep({.kind = RunStep::Kind::Copy,
          .program = source,
          .target = target,
          .succeeded = error == 0});
    return error;
}

StartResult DescribedMachine::start(const std::string& file, const std::string& parameters) {
    return startProgram(RunStep::Kind::Launch, file, parameters);
}

StartResult DescribedMachine::startAndWait(const std::string& file, const std::string& parameters) {
    return startProgram(RunStep::Kind::Run, file, parameters);
}

std::uint32_t DescribedMachine::stopRunning(const std::string&, const std::string& path) {
    const auto result = stopResults.find(path);
    const std::uint32_t code = result == stopResults.end() ? 0 : result->second;
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
    ShownDialog dialog{message.title, message.icon, {message.text}, {}, {}, {"OK"}};
    if (message.buttons == MessageButtons::YesNo) {
        dialog.buttons = {"Yes", "No"};
    }
    show(std::move(dialog));
    return steps.back().answer == "Yes";
}

void DescribedMachine::offerRemoval(
    const std::vector<InstalledProduct>& products,
    const std::function<void(const std::vector<std::string>& tickedNames)>& remove) {
    const UninstallPromptTexts texts = uninstallPromptTexts(products.size());
    const std::vector<std::string> names = sortedNames(products);
    const std::vector<std::string> actions = show({TEXT_UNINSTALL_CAPTION,
                                                   std::nullopt,
                                                   {texts.found, texts.question},
                                                   names,
                                                   {TEXT_SELECT_ALL},
                                                   {TEXT_UNINSTALL_YES, TEXT_UNINSTALL_NO}});
    std::vector<bool> ticked(names.size(), true);
    bool all = true;
    for (const std::string& action : actions) {
        const auto row = std::find(names.begin(), names.end(), action);
        if (action == TEXT_SELECT_ALL) {
            all = !all;
            ticked.assign(names.size(), all);
        } else if (row != names.end()) {
            const auto position = static_cast<std::size_t>(row - names.begin());
            ticked[position] = !ticked[position];
        }
    }
    if (steps.back().answer != TEXT_UNINSTALL_YES) {
        return;
    }
    std::vector<std::string> tickedNames;
    for (std::size_t row = 0; row < names.size(); ++row) {
        if (ticked[row]) {
            tickedNames.push_back(names[row]);
        }
    }
    prompted = true;
    remove(tickedNames);
    prompted = false;
}

std::optional<unsigned> DescribedMachine::askProductType(const ProductTypeQuestion& question) {
    ShownDialog dialog{question.title,
                       std::nullopt,
                       {question.prompt},
                       {},
                       {},
                       {TEXT_INSTALL, TEXT_CANCEL, TEXT_HELP}};
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

void DescribedMachine::appendToLog(const std::string& line) {
    keep({.kind = RunStep::Kind::Log, .target = line});
}

StartResult DescribedMachine::startProgram(RunStep::Kind kind, const std::string& file,
                                           const std::string& parameters) {
    const std::string path = withoutQuotes(file);
    const auto program = programs.find(path);
    StartResult result{.started = true};
    if (pathKind(path) != PathKind::File) {
        result = {.started = false, .instance = fileNotFound, .lastError = fileNotFound};
    } else if (program != programs.end() && program->second.failure) {
        result = *program->second.failure;
    }
    keep({.kind = kind, .program = file, .arguments = parameters, .succeeded = result.started});
    if (result.started && program != programs.end()) {
        for (const auto& [written, content] : program->second.writes) {
            files[written] = content;
        }
        for (const std::string& removed : program->second.removes) {
            files.erase(removed);
        }
    }
    return result;
}

std::vector<std::string> DescribedMachine::show(ShownDialog dialog) {
    std::vector<std::string> actions = user ? user(dialog) : std::vector<std::string>();
    const auto& buttons = dialog.buttons;
    const bool left = !actions.empty() &&
                      std::find(buttons.begin(), buttons.end(), actions.back()) != buttons.end();
    keep({.kind = RunStep::Kind::Dialog,
          .dialog = std::move(dialog),
          .answer = left ? actions.back() : ""});
    return actions;
}

void DescribedMachine::keep(RunStep step) {
    step.whilePrompted = prompted;
    steps.push_back(std::move(step));
}
