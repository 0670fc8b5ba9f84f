#include "desk/commands/command.h"

#include <algorithm>
#include <iostream>

CLI::App* addCommand(CLI::App& app, Session& session, const std::string& name,
                     const std::string& description) {
    CLI::App* const command = app.add_subcommand(name, description);
    command->add_flag("--json", session.json, "Print the result as JSON");
    command->add_flag("--strict", session.strict, "Count notes and warnings as errors");
    return command;
}

void addRepeated(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                 const std::string& type, const std::string& description) {
    command.add_option(name, values, description)
        ->take_all()
        ->type_name(type)
        ->allow_extra_args(false);
}

std::string inColumns(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; row.size() > 1 && column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            text += row[column];
            if (column + 1 < row.size()) {
                text.append(widths[column] - row[column].size() + 2, ' ');
            }
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

std::string silentMark(bool endsSilently) {
    return endsSilently ? "(its run ends silently: nothing is installed)" : "";
}

void printResult(const Session& session, const Json& document, const std::string& words) {
    std::cout << (session.json ? document.dump(2, ' ', true, Json::error_handler_t::replace) + '\n'
                               : words);
}

void printNotes(const Session& session, const std::string& subject,
                const std::vector<std::string>& notes) {
    for (const std::string& note : notes) {
        if (session.strict) {
            throw Refusal(subject + ": " + note + ".");
        }
        std::cerr << "note: " << subject << ": " << note << '\n';
    }
}
