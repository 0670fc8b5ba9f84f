#include "desk/commands/command.h"

#include <algorithm>
#include <iostream>

void addRepeated(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                 const std::string& type, const std::string& description) {
    command.add_option(name, values, description)
        ->take_all()
        ->type_name(type)
        ->allow_extra_args(false);
}

void addSignatureOptions(CLI::App& command, SignatureChoices& choices) {
    command
        .add_option("--ca-file", choices.authorities,
                    "Certificates that signatures must lead to (PEM); else those of the system")
        ->check(CLI::ExistingFile);
    command.add_flag("--require-signature,--require-signatures", choices.isRequired,
                     "Count an installer as wrong whose signature is not good");
}

void addSigningOptions(CLI::App& command, SigningChoices& choices, const std::string& jobs) {
    command.add_option("--jobs", choices.jobs, jobs)
        ->check(CLI::Range(1, 64))
        ->capture_default_str();
    const CLI::Validator notEmpty(
        [](const std::string& text) { return text.empty() ? "it is empty" : ""; }, "COMMAND");
    CLI::Option* const signing =
        command
            .add_option("--sign-command", choices.command,
                        "Signs an executable: any command, in which {in}, {out} and {name} are "
                        "replaced; without {out} it signs in place")
            ->check(notEmpty);
    command
        .add_option("--timestamp-command", choices.timestampCommand,
                    "Adds the time stamp to a signed executable, as above; it is tried again when "
                    "it fails, while a sign command is not: a token locks after wrong PINs")
        ->check(notEmpty)
        ->needs(signing);
    command.add_option("--timestamp-attempts", choices.attempts, "How often it is tried")
        ->check(CLI::Range(1, 100))
        ->capture_default_str();
    addSignatureOptions(command, choices.verification);
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
            text.append(std::max(widths[column], row[column].size()) - row[column].size() + 2, ' ');
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
