// A dry run in words.

#include "desk/computer/dry_run.h"
#include "platform/ansi_text.h"

namespace {

const std::string margin = "     ";

std::string text(const Json& object, const char* name) {
    return object.value(name, "");
}

std::string commandLine(const Json& call) {
    const std::string arguments = text(call, "arguments");
    return text(call, "program") + (arguments.empty() ? "" : " ") + arguments;
}

std::string dialogInWords(const Json& dialog) {
    const bool hasRows = !dialog["rows"].empty();
    const std::string icon = dialog["icon"].is_null() ? "" : ", " + text(dialog, "icon") + " icon";
    std::string words = margin + '"' + text(dialog, "title") + '"' + icon + '\n';
    bool isFirst = true;
    for (const std::string part : dialog["texts"]) {
        words += margin + "| " + replaceAll(part, "\n", '\n' + margin + "| ", false) + '\n';
        words += inLines(margin + "|   [x] ", isFirst ? dialog["rows"] : Json());
        isFirst = false;
    }
    std::string mark = hasRows ? "[x] " : "(o) ";
    for (const std::string choice : dialog["choices"]) {
        words += margin + "|   " + mark + choice + '\n';
        mark = hasRows ? mark : "( ) ";
    }
    const std::vector<std::string> buttons = dialog["buttons"];
    return words + margin + "| [" + joined(buttons, "]  [") + "]\n";
}

std::string promptInWords(const Json& step) {
    std::string words = "shows\n" + dialogInWords(step["dialog"]);
    for (const Json& answer : step["answers"]) {
        words += margin + '"' + text(answer, "button") + "\": " + text(answer, "outcome") + '\n';
        std::size_t number = 0;
        for (const Json& call : answer["runs"]) {
            words += margin + "   " + std::to_string(++number) + ". " + commandLine(call) + '\n';
        }
    }
    return words;
}

std::string stepInWords(const Json& step) {
    const std::string kind = text(step, "kind");
    if (kind == "dialog") {
        return promptInWords(step);
    }
    const std::string does = kind == "stop"   ? "stops  " + text(step, "program")
                             : kind == "copy" ? "copies  " + text(step, "from") + '\n' + margin +
                                                    "to " + text(step, "to")
                             : kind == "log"  ? "logs  " + text(step, "line")
                             : kind == "wait" ? "waits  " + step["seconds"].dump() + " seconds"
                                              : "runs  " + commandLine(step);
    return does + '\n' + margin + text(step, "note") + '\n';
}

std::string endingInWords(const Json& ending) {
    const std::string choice = text(ending, "choice");
    std::string words = (choice.empty() ? "without a question" : choice) + '\n';
    if (ending.contains("message")) {
        return words + dialogInWords(ending["message"]);
    }
    words += "   product   " + text(ending, "productCode") + "  " + text(ending, "productName") +
             "\n   folder    " + text(ending, "programFolder");
    if (ending["programFolderNumber"] > 1) {
        words +=
            "  (the names before number " + ending["programFolderNumber"].dump() + " are taken)";
    }
    return words + "\n   starts    " + text(ending["setup"], "program") + "\n      " +
           text(ending["setup"], "arguments") + '\n';
}

}  // namespace

std::string runInWords(const Json& run) {
    std::string system = text(run, "system");
    system.erase(system.find_last_not_of(' ') + 1);
    std::string words = "The run on " + (system.empty() ? "a release without a name" : system) +
                        ", " + run["bits"].dump() + "-bit (code " + run["systemCode"].dump() +
                        "):\n" + inLines("note: ", run["notes"]);
    std::size_t number = 0;
    for (const Json& step : run["steps"]) {
        words += '\n' + std::to_string(++number) + ". " + stepInWords(step);
    }
    words += run["earlyEnd"].is_null() ? "" : '\n' + text(run, "earlyEnd") + '\n';
    for (const Json& ending : run["endings"]) {
        words += '\n' + endingInWords(ending);
    }
    hideArchiveKeys(words);
    return words;
}
