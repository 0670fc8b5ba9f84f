#include "desk/executables/signing.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

#include "desk/executables/shell_command.h"
#include "desk/media/output_folder.h"
#include "desk/refusal.h"

namespace fs = std::filesystem;

namespace {

/// Runs a command that signs `file` in place or, where it says "{out}", into a file of its own. The
/// error text; empty when it went well.
std::string runOn(const fs::path& file, const std::string& command, const std::string& name) {
    const fs::path output = file.string() + ".signed";
    std::error_code failure;
    fs::remove(output, failure);
    const CommandResult result =
        runCommand(command, {{"in", file.string()}, {"out", output.string()}, {"name", name}});
    stopWhenAsked();  // Control-C ended the command too
    if (result.exitCode != 0) {
        return result.output.empty() ? "it failed without a word" : result.output;
    }
    if (command.find("{out}") != std::string::npos) {
        fs::rename(output, file, failure);
        return failure ? "no output was made. " + result.output : "";
    }
    return "";
}

[[noreturn]] void refuse(const fs::path& file, const std::string& what, const std::string& reason) {
    throw Refusal("\"" + file.string() + "\" " + what + ":\n" + reason);
}

}  // namespace

void addSigningOptions(CLI::App& command, SigningChoices& choices) {
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

void sign(const fs::path& file, const std::string& name, const SigningChoices& choices) {
    if (const std::string error = runOn(file, choices.command, name); !error.empty()) {
        refuse(file, "cannot be signed; the sign command says", error);
    }
    for (unsigned attempt = 1; !choices.timestampCommand.empty(); ++attempt) {
        const std::string error = runOn(file, choices.timestampCommand, name);
        if (error.empty()) {
            break;
        }
        if (attempt >= choices.attempts) {
            refuse(file,
                   "has no time stamp after " + std::to_string(attempt) +
                       " attempts; the command says",
                   error);
        }
        std::this_thread::sleep_for(std::chrono::seconds(1U << std::min(attempt, 6U)) / 2);
    }
    const FileSummary summary = summarize(file.string());
    const Executable executable(summary);
    if (const std::string damage = executable.damage(); !damage.empty()) {
        refuse(file, "was damaged by the sign command", damage);
    }
    const Json signature = signatureOf(file, executable, choices.verification);
    const bool mustVerify = !choices.verification.authorities.empty();
    if (signature["state"] != "good" && (mustVerify || signature["state"] != "untrusted")) {
        refuse(file, "is not signed as it should be although the sign command ended well",
               signatureInWords(signature));
    }
}
