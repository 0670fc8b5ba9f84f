#include "desk/executables/signature.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "desk/executables/shell_command.h"
#include "desk/refusal.h"

namespace {

/// The rest of the line behind `prefix`; empty when the text does not hold that.
std::string behind(const std::string& text, const std::string& prefix) {
    const std::size_t found = text.find(prefix);
    if (found == std::string::npos) {
        return "";
    }
    const std::size_t start = found + prefix.size();
    return text.substr(start, text.find_first_of("\r\n", start) - start);
}

}  // namespace

void addSignatureOptions(CLI::App& command, SignatureChoices& choices) {
    command
        .add_option("--ca-file", choices.authorities,
                    "Certificates that signatures must lead to (PEM); else those of the system")
        ->check(CLI::ExistingFile);
    command.add_flag("--require-signature,--require-signatures", choices.isRequired,
                     "Count an installer as wrong whose signature is not good");
}

Json signatureOf(const std::filesystem::path& file, const Executable& executable,
                 const SignatureChoices& choices) {
    Json signature = noSignature();
    if (!executable.isSigned()) {
        return signature;
    }
    const CommandResult result = runCommand(
        std::string(
            "timeout 60 osslsigncode verify -in {in}") +  // a damaged one can hold it for ever
            (choices.authorities.empty() ? "" : " -CAfile {ca}"),
        {{"in", file.string()}, {"ca", choices.authorities}});
    signature["by"] = behind(result.output, "Subject: ");
    // The certificate is looked at only when the content is as it was signed.
    const std::string distrust = result.exitCode == 127 ? "osslsigncode is not installed"
                                                        : behind(result.output, "Verify error: ");
    if (result.exitCode == 0) {
        signature["state"] = "good";
    } else if (!distrust.empty()) {
        signature.update({{"state", "untrusted"}, {"reason", distrust}});
    } else {
        signature.update({{"state", "broken"}, {"reason", "the content is not what was signed"}});
    }
    return signature;
}

Json noSignature() {
    return {{"state", "none"}, {"by", ""}, {"reason", ""}};
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

void requireUnsigned(const std::filesystem::path& existing) {
    std::error_code failure;
    if (std::filesystem::is_regular_file(existing, failure) &&
        Executable(summarize(existing.string())).isSigned()) {
        throw Refusal("\"" + existing.string() +
                      "\" is signed, and what would replace it is not; sign it, name another "
                      "folder, or remove this one.");
    }
}
