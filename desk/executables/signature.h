// The signature of an executable, as osslsigncode verifies it.
#pragma once

#include <filesystem>
#include <string>

#include "desk/executables/executable.h"

namespace CLI {
class App;
}

enum class SignatureState { None, Good, Untrusted, Broken };

struct Signature {
    SignatureState state = SignatureState::None;
    std::string signer = {};  ///< the certificate's subject, such as "/O=Maker/CN=Name"
    std::string reason = {};  ///< of one that is untrusted or broken
};

/// What a command asks of signatures.
struct SignatureChoices {
    std::string authorities;  ///< PEM file; empty: those that osslsigncode trusts by itself
    bool isRequired = false;
};

/// Adds `--ca-file` and `--require-signature`.
void addSignatureOptions(CLI::App& command, SignatureChoices& choices);

/// `executable` is the content of `file`, and whole.
[[nodiscard]] Signature signatureOf(const std::filesystem::path& file, const Executable& executable,
                                    const SignatureChoices& choices);

/// Such as "signed by /CN=Name".
[[nodiscard]] std::string inWords(const Signature& signature);

/// What is wrong with it, for people: a broken one always is; one that is missing or not trusted
/// when one is required. Empty when nothing is.
[[nodiscard]] std::string signatureProblem(const Signature& signature,
                                           const SignatureChoices& choices);

/// Throws Refusal when there is a signed installer, which an unsigned one would take the place of.
void requireUnsigned(const std::filesystem::path& existing);
