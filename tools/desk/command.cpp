#include "tools/desk/command.h"

#include <iostream>

CLI::App* addCommand(CLI::App& app, Session& session, const std::string& name,
                     const std::string& description) {
    CLI::App* const command = app.add_subcommand(name, description);
    command->add_flag("--json", session.json, "Print the result as JSON");
    return command;
}

void printJson(const Json& document) {
    std::cout << document.dump(2, ' ', true, Json::error_handler_t::replace) << '\n';
}

void printNote(const std::string& subject, const std::string& note) {
    std::cerr << "note: " << subject << ": " << note << '\n';
}

std::string utf8(std::string_view text) {
    std::string result;
    for (const char character : text) {
        const auto number = static_cast<unsigned char>(character);
        if (number < 0x80) {
            result += character;
        } else {
            result += static_cast<char>(0xC0 | number >> 6);
            result += static_cast<char>(0x80 | (number & 0x3F));
        }
    }
    return result;
}
