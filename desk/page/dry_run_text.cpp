#include "desk/page/dry_run_text.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "desk/western_text.h"

namespace {

const char* kindOf(const DryRunStep& step) {
    constexpr const char* names[] = {"dialog", "stop", "copy", "log", "wait", "run", "launch"};
    return step.reported ? "runReported" : names[static_cast<std::size_t>(step.step.kind)];
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

Json asJson(const ProgramCall& command) {
    return {{"program", toUtf8(command.program)}, {"arguments", toUtf8(command.arguments)}};
}

Json asJson(const ShownDialog& dialog) {
    return {{"title", toUtf8(dialog.title)},
            {"icon", dialog.icon ? Json(nameOf(*dialog.icon)) : Json(nullptr)},
            {"texts", allToUtf8(dialog.texts)},
            {"rows", allToUtf8(dialog.rows)},
            {"choices", allToUtf8(dialog.choices)},
            {"buttons", allToUtf8(dialog.buttons)}};
}

Json asJson(const DryRunStep& annotated) {
    const RunStep& step = annotated.step;
    Json json = {{"kind", kindOf(annotated)}};
    if (step.kind == RunStep::Kind::Dialog) {
        json["dialog"] = asJson(step.dialog);
        json["answers"] = Json::array();
        for (const DialogAnswer& answer : annotated.answers) {
            Json runs = Json::array();
            for (const ProgramCall& call : answer.runs) {
                runs.push_back(asJson(call));
            }
            json["answers"].push_back({{"button", answer.button},
                                       {"outcome", answer.outcome},
                                       {"goesOn", answer.goesOn},
                                       {"runs", std::move(runs)}});
        }
        return json;
    }
    switch (step.kind) {
        case RunStep::Kind::Copy:
            json["from"] = toUtf8(step.program);
            json["to"] = toUtf8(step.target);
            break;
        case RunStep::Kind::Log:
            json["line"] = toUtf8(step.target);
            break;
        case RunStep::Kind::Wait:
            json["seconds"] = step.seconds;
            break;
        default:
            json["program"] = toUtf8(step.program);
            json["arguments"] = toUtf8(step.arguments);
    }
    json["note"] = toUtf8(annotated.note);
    return json;
}

Json asJson(const DryRunEnding& ending) {
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

std::string asText(const ShownDialog& dialog) {
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

std::string asText(const DryRunStep& annotated) {
    const RunStep& step = annotated.step;
    const std::string note = "\n     " + toUtf8(annotated.note) + '\n';
    switch (step.kind) {
        case RunStep::Kind::Stop:
            return "stops  " + toUtf8(step.program) + note;
        case RunStep::Kind::Copy:
            return "copies  " + toUtf8(step.program) + "\n     to " + toUtf8(step.target) + note;
        case RunStep::Kind::Log:
            return "logs  " + toUtf8(step.target) + note;
        case RunStep::Kind::Wait:
            return "waits  " + std::to_string(step.seconds) + " seconds" + note;
        case RunStep::Kind::Run:
        case RunStep::Kind::Launch:
            return "runs  " + shownCommand({step.program, step.arguments}) + note;
        case RunStep::Kind::Dialog:
            break;
    }
    std::string text = "shows\n" + asText(step.dialog);
    for (const DialogAnswer& answer : annotated.answers) {
        text += "     \"" + answer.button + "\": " + answer.outcome + '\n';
        std::size_t number = 0;
        for (const ProgramCall& call : answer.runs) {
            text += "        " + std::to_string(++number) + ". " + shownCommand(call) + '\n';
        }
    }
    return text;
}

std::string asText(const DryRunEnding& ending) {
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

std::string shownCommand(const ProgramCall& command) {
    std::string arguments = toUtf8(command.arguments);
    const std::string option = "-fzxkey ";
    if (const std::size_t key = arguments.find(option); key != std::string::npos) {
        const std::size_t start = key + option.size();
        arguments.replace(start, arguments.find(' ', start) - start, "...");
    }
    return toUtf8(command.program) + (arguments.empty() ? "" : " ") + arguments;
}

std::string systemInWords(const DryRun& run) {
    std::string name = toUtf8(run.system);
    while (name.ends_with(' ')) {
        name.pop_back();
    }
    return (name.empty() ? "a release without a name" : name) + ", " + (run.is64Bit ? "64" : "32") +
           "-bit (code " + std::to_string(run.systemCode) + ')';
}

std::string dryRunAsText(const DryRun& run) {
    std::string text = "The run on " + systemInWords(run) + ":\n";
    for (const std::string& note : run.notes) {
        text += "note: " + toUtf8(note) + '\n';
    }
    std::size_t number = 0;
    for (const DryRunStep& step : run.steps) {
        text += '\n' + std::to_string(++number) + ". " + asText(step);
    }
    if (!run.earlyEnd.empty()) {
        text += '\n' + run.earlyEnd + '\n';
    }
    for (const DryRunEnding& ending : run.endings) {
        text += '\n' + asText(ending);
    }
    return text;
}

Json dryRunAsJson(const DryRun& run) {
    Json json = {{"system", toUtf8(run.system)},
                 {"systemCode", run.systemCode},
                 {"bits", run.is64Bit ? 64 : 32},
                 {"title", toUtf8(run.title)},
                 {"notes", allToUtf8(run.notes)},
                 {"steps", Json::array()},
                 {"earlyEnd", run.earlyEnd.empty() ? Json(nullptr) : Json(run.earlyEnd)},
                 {"endings", Json::array()}};
    for (const DryRunStep& step : run.steps) {
        json["steps"].push_back(asJson(step));
    }
    for (const DryRunEnding& ending : run.endings) {
        json["endings"].push_back(asJson(ending));
    }
    return json;
}
