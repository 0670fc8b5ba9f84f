#include "desk/commands/command.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "desk/refusal.h"

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

void printResult(const Session& session, const Json& document, const std::string& words) {
    std::cout << (session.json ? document.dump(2, ' ', true, Json::error_handler_t::replace) + '\n'
                               : words);
}

void printNote(const Session& session, const std::string& subject, const std::string& note) {
    if (session.strict) {
        throw Refusal(subject + ": " + note + ".");
    }
    std::cerr << "note: " << subject << ": " << note << '\n';
}
