// Signatures of executables: made with commands that the caller names, verified by osslsigncode.
#pragma once

#include <algorithm>
#include <thread>

#include "desk/executables/executable.h"

/// What a command asks of signatures.
struct SignatureChoices {
    std::string authorities;  ///< PEM file; empty: those that osslsigncode trusts by itself
    bool isRequired = false;
};

/// The signature as a document: "state" ("none", "good", "untrusted" or "broken"), "by" (the
/// certificate's subject, such as "/O=Maker/CN=Name") and "reason" (of one that is not good).
/// `executable` is the content of `file`, and whole.
[[nodiscard]] Json signatureOf(const fs::path& file, const Executable& executable,
                               const SignatureChoices& choices);

/// The document of a file that is not signed.
inline const Json noSignature = {{"state", "none"}, {"by", ""}, {"reason", ""}};

/// Such as "signed by /CN=Name".
[[nodiscard]] std::string signatureInWords(const Json& signature);

/// What is wrong with it, for people: a broken one always is; one that is missing or not trusted
/// when one is required. Empty when nothing is.
[[nodiscard]] std::string signatureProblem(const Json& signature, const SignatureChoices& choices);

/// Throws Refusal when there is a signed installer, which an unsigned one would take the place of.
void requireUnsigned(const fs::path& existing);

struct SigningChoices {
    std::string command;           ///< empty: nothing is signed
    std::string timestampCommand;  ///< empty: none, or the first command does it
    unsigned attempts = 5;         ///< at the time stamp
    SignatureChoices verification;
    /// How many files at a time.
    unsigned jobs = std::max(1U, std::thread::hardware_concurrency());
};

/// Signs the file, in place, and verifies that. `name` is what the signature says of it. Throws
/// Refusal with what the commands say.
void sign(const fs::path& file, const std::string& name, const SigningChoices& choices);
