// Signing executables with commands that the caller names.
#pragma once

#include <filesystem>
#include <string>

#include "desk/executables/signature.h"

struct SigningChoices {
    std::string command;           ///< empty: nothing is signed
    std::string timestampCommand;  ///< empty: none, or the first command does it
    unsigned attempts = 5;         ///< at the time stamp
    SignatureChoices verification;
};

/// Adds `--sign-command`, `--timestamp-command`, `--timestamp-attempts` and those of
/// addSignatureOptions.
void addSigningOptions(CLI::App& command, SigningChoices& choices);

/// Signs the file, in place, and verifies that. `name` is what the signature says of it. Throws
/// Refusal with what the commands say.
void sign(const std::filesystem::path& file, const std::string& name,
          const SigningChoices& choices);
