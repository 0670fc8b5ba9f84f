// The signature of an executable, as osslsigncode verifies it.
#pragma once

#include <filesystem>
#include <string>

#include "desk/executables/executable.h"
#include "desk/json.h"

namespace CLI {
class App;
}

/// What a command asks of signatures.
struct SignatureChoices {
    std::string authorities;  ///< PEM file; empty: those that osslsigncode trusts by itself
    bool isRequired = false;
};

/// Adds `--ca-file` and `--require-signature`.
void addSignatureOptions(CLI::App& command, SignatureChoices& choices);

/// The signature as a document: "state" ("none", "good", "untrusted" or "broken"), "by" (the
/// certificate's subject, such as "/O=Maker/CN=Name") and "reason" (of one that is not good).
/// `executable` is the content of `file`, and whole.
[[nodiscard]] Json signatureOf(const std::filesystem::path& file, const Executable& executable,
                               const SignatureChoices& choices);

/// The document of a file that is not signed.
[[nodiscard]] Json noSignature();

/// Such as "signed by /CN=Name".
[[nodiscard]] std::string signatureInWords(const Json& signature);

/// What is wrong with it, for people: a broken one always is; one that is missing or not trusted
/// when one is required. Empty when nothing is.
[[nodiscard]] std::string signatureProblem(const Json& signature, const SignatureChoices& choices);

/// Throws Refusal when there is a signed installer, which an unsigned one would take the place of.
void requireUnsigned(const std::filesystem::path& existing);
