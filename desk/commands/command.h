// What the commands of the release engineer's desk share.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "desk/executables/signature.h"

inline constexpr int exitGood = 0;
inline constexpr int exitWrong = 1;  ///< something is wrong with the input
inline constexpr int exitUsage = 2;  ///< wrong usage

/// One run of the program.
struct Session {
    bool json = false;    ///< results go to the output as JSON alone; notes go to the error output
    bool strict = false;  ///< what is noteworthy is wrong
    int exitCode = exitGood;
};

/// Adds an option that takes one value and may be given again.
void addRepeated(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                 const std::string& type, const std::string& description);

/// Adds `--ca-file` and `--require-signature`.
void addSignatureOptions(CLI::App& command, SignatureChoices& choices);

/// Adds `--jobs`, `--sign-command`, `--timestamp-command`, `--timestamp-attempts` and those of
/// addSignatureOptions.
void addSigningOptions(CLI::App& command, SigningChoices& choices, const std::string& jobs);

/// The rows, one a line, in columns that are as wide as their widest cell (in ASCII); a row of one
/// cell is a line of its own.
[[nodiscard]] std::string inColumns(const std::vector<std::vector<std::string>>& rows);

/// What a table says of a product whose run installs nothing; empty for the others.
[[nodiscard]] std::string silentMark(bool endsSilently);

/// Prints what a command found: the document, indented and in ASCII alone, or the same in words.
void printResult(const Session& session, const Json& document, const std::string& words);

/// Prints to the error output: `subject` and what is noteworthy about it. Throws Refusal with that
/// when the session is strict, so it comes before anything is written.
void printNotes(const Session& session, const std::string& subject,
                const std::vector<std::string>& notes);

/// Adds a command's own options, and what it does; the command's file defines it.
using OptionsAdder = void(CLI::App& command, Session& session);
OptionsAdder addProductsOptions, addStampOptions, addEncipherOptions, addDecipherOptions,
    addLayoutOptions, addCheckOptions, addReleaseOptions, addVerifyOptions;
