#include "desk/executables/signature.h"

#include <CLI/CLI.hpp>

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

Signature signatureOf(const std::filesystem::path& file, const Executable& executable,
                      const SignatureChoices& choices) {
    if (!executable.isSigned()) {
        return {};
    }
    const CommandResult result = runCommand(
        std::string(
            "timeout 60 osslsigncode verify -in {in}") +  // a damaged one can hold it for ever
            (choices.authorities.empty() ? "" : " -CAfile {ca}"),
        {{"in", file.string()}, {"ca", choices.authorities}});
    Signature signature{SignatureState::Good, behind(result.output, "Subject: ")};
    if (result.exitCode == 0) {
        return signature;
    }
    // The certificate is looked at only when the content is as it was signed.
    signature.reason = behind(result.output, "Verify error: ");
    signature.state = SignatureState::Untrusted;
    if (result.exitCode == 127) {
        signature.reason = "osslsigncode is not installed";
    } else if (signature.reason.empty()) {
        signature.state = SignatureState::Broken;
        signature.reason = "the content is not what was signed";
    }
    return signature;
}

std::string inWords(const Signature& signature) {
    const std::string by = signature.signer.empty() ? "" : " by " + signature.signer;
    switch (signature.state) {
        case SignatureState::None:
            return "not signed";
        case SignatureState::Good:
            return "signed" + by;
        case SignatureState::Untrusted:
            return "signed" + by + ", which is not verified: " + signature.reason;
        case SignatureState::Broken:
            break;
    }
    return "signature" + by + " is broken: " + signature.reason;
}

std::string signatureProblem(const Signature& signature, const SignatureChoices& choices) {
    const bool isWrong = signature.state == SignatureState::Broken ||
                         (choices.isRequired && signature.state != SignatureState::Good);
    return isWrong ? inWords(signature) : "";
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
