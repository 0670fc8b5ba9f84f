#include "desk/page/story_text.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "desk/western_text.h"

namespace {

constexpr const char* kindNames[] = {"dialog", "stop", "copy", "run", "runReported"};

const char* nameOf(StoryStep::Kind kind) {
    return kindNames[static_cast<std::size_t>(kind)];
}

const char* nameOf(MessageIcon icon) {
    return icon == MessageIcon::Error ? "error" : "warning";
}

std::vector<std::string> allToUtf8(const std::vector<std::string>& texts) {
    std::vector<std::string> all;
    for (const std::string& text : texts) {
        all.push_back(toUtf8(text));
    }
    return all;
}

Json asJson(const StoryCommand& command) {
    return {{"program", toUtf8(command.program)}, {"arguments", toUtf8(command.arguments)}};
}

Json asJson(const StoryDialog& dialog) {
    return {{"title", toUtf8(dialog.title)},
            {"icon", dialog.icon ? Json(nameOf(*dialog.icon)) : Json(nullptr)},
            {"texts", allToUtf8(dialog.texts)},
            {"rows", allToUtf8(dialog.rows)},
            {"choices", allToUtf8(dialog.choices)},
            {"buttons", allToUtf8(dialog.buttons)}};
}

Json asJson(const StoryStep& step) {
    Json json = {{"kind", nameOf(step.kind)}};
    if (step.kind == StoryStep::Kind::Dialog) {
        json["dialog"] = asJson(step.dialog);
        json["answers"] = Json::array();
        for (const StoryAnswer& answer : step.answers) {
            Json runs = Json::array();
            for (const StoryCommand& command : answer.runs) {
                runs.push_back(asJson(command));
            }
            json["answers"].push_back({{"button", answer.button},
                                       {"outcome", answer.outcome},
                                       {"goesOn", answer.goesOn},
                                       {"runs", std::move(runs)}});
        }
        return json;
    }
    if (step.kind == StoryStep::Kind::Copy) {
        json["from"] = toUtf8(step.command.program);
        json["to"] = toUtf8(step.command.arguments);
    } else {
        json["program"] = toUtf8(step.command.program);
        json["arguments"] = toUtf8(step.command.arguments);
    }
    json["note"] = toUtf8(step.note);
    return json;
}

Json asJson(const StoryEnding& ending) {
    Json json = {{"choice", ending.choice},
                 {"productCode", toUtf8(ending.productCode)},
                 {"productName", toUtf8(ending.productName)}};
    if (ending.message) {
        json["message"] = asJson(*ending.message);
        return json;
    }
    json["programFolder"] = toUtf8(ending.programFolder);
    json["programFolderNumber"] = ending.programFolderNumber;
    json["setup"] = asJson(ending.setup);
    json["fields"] = Json::object();
    for (const auto& [name, value] : parameterFields(ending.setup.arguments)) {
        json["fields"][toUtf8(name)] = toUtf8(value);
    }
    return json;
}

/// The text with every line set in.
std::string indented(const std::string& text, const std::string& margin) {
    std::string result = margin;
    for (const char character : text) {
        result += character;
        if (character == '\n') {
            result += margin;
        }
    }
    return result + '\n';
}

std::string inBrackets(const std::vector<std::string>& labels) {
    std::string text;
    for (const std::string& label : labels) {
        text += (text.empty() ? "[" : "  [") + toUtf8(label) + ']';
    }
    return text;
}

std::string asText(const StoryDialog& dialog) {
    const std::string margin = "     ";
    std::string text = margin + '"' + toUtf8(dialog.title) + '"' +
                       (dialog.icon ? std::string(", ") + nameOf(*dialog.icon) + " icon" : "") +
                       '\n';
    bool rowsShown = dialog.rows.empty();
    for (const std::string& part : dialog.texts) {
        text += indented(toUtf8(part), margin + "| ");
        if (!rowsShown) {
            rowsShown = true;
            for (const std::string& row : dialog.rows) {
                text += margin + "|   [x] " + toUtf8(row) + '\n';
            }
        }
    }
    const bool options = dialog.rows.empty();
    for (std::size_t index = 0; index < dialog.choices.size(); ++index) {
        text += margin + (options ? index == 0 ? "|   (o) " : "|   ( ) " : "|   [x] ") +
                toUtf8(dialog.choices[index]) + '\n';
    }
    return text + margin + "| " + inBrackets(dialog.buttons) + '\n';
}

std::string asText(const StoryStep& step) {
    switch (step.kind) {
        case StoryStep::Kind::Stop:
            return "stops  " + toUtf8(step.command.program) + "\n     " + toUtf8(step.note) + '\n';
        case StoryStep::Kind::Copy:
            return "copies  " + toUtf8(step.command.program) + "\n     to " +
                   toUtf8(step.command.arguments) + '\n';
        case StoryStep::Kind::Run:
        case StoryStep::Kind::Reported:
            return "runs  " + shownCommand(step.command) + "\n     " + toUtf8(step.note) + '\n';
        case StoryStep::Kind::Dialog:
            break;
    }
    std::string text = "shows\n" + asText(step.dialog);
    for (const StoryAnswer& answer : step.answers) {
        text += "     \"" + answer.button + "\": " + answer.outcome + '\n';
        std::size_t number = 0;
        for (const StoryCommand& command : answer.runs) {
            text += "        " + std::to_string(++number) + ". " + shownCommand(command) + '\n';
        }
    }
    return text;
}

std::string asText(const StoryEnding& ending) {
    std::string text = (ending.choice.empty() ? "without a question" : ending.choice) + '\n';
    if (ending.message) {
        return text + asText(*ending.message);
    }
    text += "   product   " + toUtf8(ending.productCode) + "  " + toUtf8(ending.productName) +
            "\n   folder    " + toUtf8(ending.programFolder);
    if (ending.programFolderNumber > 1) {
        text += "  (the names before number " + std::to_string(ending.programFolderNumber) +
                " are taken)";
    }
    return text + "\n   starts    " + toUtf8(ending.setup.program) + "\n      " +
           toUtf8(ending.setup.arguments) + '\n';
}

}  // namespace

std::string shownCommand(const StoryCommand& command) {
    std::string arguments = toUtf8(command.arguments);
    const std::string option = "-fzxkey ";
    if (const std::size_t key = arguments.find(option); key != std::string::npos) {
        const std::size_t start = key + option.size();
        arguments.replace(start, arguments.find(' ', start) - start, "...");
    }
    return toUtf8(command.program) + (arguments.empty() ? "" : " ") + arguments;
}

std::string systemInWords(const RunStory& story) {
    std::string name = toUtf8(story.system);
    while (name.ends_with(' ')) {
        name.pop_back();
    }
    return (name.empty() ? "a release without a name" : name) + ", " +
           (story.is64Bit ? "64" : "32") + "-bit (code " + std::to_string(story.systemCode) + ')';
}

std::string storyAsText(const RunStory& story) {
    std::string text = "The run on " + systemInWords(story) + ":\n";
    for (const std::string& note : story.notes) {
        text += "note: " + toUtf8(note) + '\n';
    }
    std::size_t number = 0;
    for (const StoryStep& step : story.steps) {
        text += '\n' + std::to_string(++number) + ". " + asText(step);
    }
    if (!story.earlyEnd.empty()) {
        text += '\n' + story.earlyEnd + '\n';
    }
    for (const StoryEnding& ending : story.endings) {
        text += '\n' + asText(ending);
    }
    return text;
}

Json storyAsJson(const RunStory& story) {
    Json json = {{"system", toUtf8(story.system)},
                 {"systemCode", story.systemCode},
                 {"bits", story.is64Bit ? 64 : 32},
                 {"title", toUtf8(story.title)},
                 {"notes", allToUtf8(story.notes)},
                 {"steps", Json::array()},
                 {"earlyEnd", story.earlyEnd.empty() ? Json(nullptr) : Json(story.earlyEnd)},
                 {"endings", Json::array()}};
    for (const StoryStep& step : story.steps) {
        json["steps"].push_back(asJson(step));
    }
    for (const StoryEnding& ending : story.endings) {
        json["endings"].push_back(asJson(ending));
    }
    return json;
}
