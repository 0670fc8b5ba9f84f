#include "desk/executables/signature.h"

#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <map>

#include "desk/media/output_folder.h"
#include "platform/ansi_text.h"

namespace {

struct CommandResult {
    int exitCode = -1;   ///< -1: it was ended, or never started
    std::string output;  ///< both of its outputs
};

/// Replaces each "{key}" of `command` by its value, quoted for the shell, and has that run it.
CommandResult runCommand(std::string command, const std::map<std::string, std::string>& values) {
    for (std::size_t start = 0; (start = command.find('{', start)) != std::string::npos;) {
        const std::size_t size = command.substr(start).find('}');
        const auto value = values.find(command.substr(start + 1, size - 1));
        std::string text = "{";
        if (size != std::string::npos && value != values.end()) {
            text = '\'' + replaceAll(value->second, "'", "'\\''", false) + '\'';
            command.erase(start, size);
        }
        command.replace(start, 1, text);
        start += text.size();
    }
    std::FILE* const pipe = popen(("(" + command + "\n) 2>&1").c_str(), "r");
    if (pipe == nullptr) {
        return {.output = "the shell cannot be started"};
    }
    CommandResult result;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) {
        result.output.append(buffer, count);
    }
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

/// The rest of the line behind `prefix`; empty when the text does not hold that.
std::string behind(const std::string& text, const std::string& prefix) {
    const std::size_t start = std::min(text.find(prefix), text.size());
    const std::string line = text.substr(start, text.find_first_of("\r\n", start) - start);
    return line.substr(std::min(prefix.size(), line.size()));
}

/// Runs a command that signs `file` in place or, where it says "{out}", into a file of its own. The
/// error text; empty when it went well.
std::string runOn(const fs::path& file, const std::string& command, const std::string& name) {
    const std::string output = file.string() + ".signed";
    std::error_code failure;
    fs::remove(output, failure);
    const CommandResult result =
        runCommand(command, {{"in", file}, {"out", output}, {"name", name}});
    stopWhenAsked();  // Control-C ended the command too
    if (result.exitCode != 0) {
        return result.output.empty() ? "it failed without a word" : result.output;
    }
    if (command.find("{out}") != std::string::npos) {
        fs::rename(output, file, failure);
    }
    return failure ? "no output was made. " + result.output : "";
}

}  // namespace

Json signatureOf(const fs::path& file, const Executable& executable,
                 const SignatureChoices& choices) {
    Json signature = noSignature;
    if (!executable.isSigned()) {
        return signature;
    }
    // A damaged one can hold osslsigncode for ever.
    const CommandResult result =
        runCommand(std::string("timeout 60 osslsigncode verify -in {in}") +
                       (choices.authorities.empty() ? "" : " -CAfile {ca}"),
                   {{"in", file}, {"ca", choices.authorities}});
    signature["by"] = behind(result.output, "Subject: ");
    // The certificate is looked at only when the content is as it was signed.
    const std::string distrust = result.exitCode == 127 ? "osslsigncode is not installed"
                                                        : behind(result.output, "Verify error: ");
    signature["state"] = result.exitCode == 0 ? "good" : distrust.empty() ? "broken" : "untrusted";
    if (result.exitCode != 0) {
        signature["reason"] = distrust.empty() ? "the content is not what was signed" : distrust;
    }
    return signature;
}

std::string signatureInWords(const Json& signature) {
    const std::string signer = signature["by"], reason = signature["reason"];
    const std::string by = signer.empty() ? "" : " by " + signer;
    return signature["state"] == "none"   ? "not signed"
           : signature["state"] == "good" ? "signed" + by
           : signature["state"] == "untrusted"
               ? "signed" + by + ", which is not verified: " + reason
               : "signature" + by + " is broken: " + reason;
}

std::string signatureProblem(const Json& signature, const SignatureChoices& choices) {
    const bool isWrong =
        signature["state"] == "broken" || (choices.isRequired && signature["state"] != "good");
    return isWrong ? signatureInWords(signature) : "";
}

void requireUnsigned(const fs::path& existing) {
    std::error_code failure;
    if (fs::is_regular_file(existing, failure) && Executable(summarize(existing)).isSigned()) {
        refuse(existing,
               "is signed, and what would replace it is not; sign it, name another "
               "folder, or remove this one.");
    }
}

void sign(const fs::path& file, const std::string& name, const SigningChoices& choices) {
    if (const std::string error = runOn(file, choices.command, name); !error.empty()) {
        refuse(file, "cannot be signed; the sign command says:\n" + error);
    }
    for (unsigned attempt = 1; !choices.timestampCommand.empty(); ++attempt) {
        const std::string error = runOn(file, choices.timestampCommand, name);
        if (error.empty()) {
            break;
        }
        if (attempt >= choices.attempts) {
            refuse(file, "has no time stamp after " + std::to_string(attempt) +
                             " attempts; the command says:\n" + error);
        }
        std::this_thread::sleep_for(std::chrono::seconds(1U << std::min(attempt, 6U)) / 2);
    }
    const FileSummary summary = summarize(file);
    const Executable executable(summary);
    if (const std::string damage = executable.damage(); !damage.empty()) {
        refuse(file, "was damaged by the sign command:\n" + damage);
    }
    const Json signature = signatureOf(file, executable, choices.verification);
    const bool mustVerify = !choices.verification.authorities.empty();
    if (signature["state"] != "good" && (mustVerify || signature["state"] != "untrusted")) {
        refuse(file, "is not signed as it should be although the sign command ended well:\n" +
                         signatureInWords(signature));
    }
}
