// Looks at a release that somebody else made.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "desk/commands/command.h"
#include "desk/executables/executable.h"
#include "desk/executables/sha256.h"
#include "desk/executables/shell_command.h"
#include "desk/executables/stamp_image.h"
#include "desk/executables/version_stamp.h"
#include "desk/media/product_facts.h"
#include "desk/media/release_folder.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"

namespace {

namespace fs = std::filesystem;

struct Choices {
    std::string folder;
    std::string verifyCommand;
    bool requiresSignatures = false;
};

struct Problem {
    std::string file;
    std::string what;
};

/// What the look at a release has found so far.
struct Findings {
    std::vector<Problem> problems;
    std::size_t installers = 0;
    std::size_t signatures = 0;

    void add(const std::string& file, const std::string& what) { problems.push_back({file, what}); }
};

/// Digests by path, from lines of sha256sum.
std::map<std::string, std::string> readChecksums(const fs::path& folder, Findings& findings) {
    std::map<std::string, std::string> digests;
    std::istringstream lines(readInput((folder / checksumsFile).string()));
    for (std::string line; std::getline(lines, line);) {
        constexpr std::size_t digestSize = 64;
        if (line.size() < digestSize + 3 || line[digestSize] != ' ' ||
            !digests.emplace(line.substr(digestSize + 2), line.substr(0, digestSize)).second) {
            findings.add(checksumsFile, "a line is no checksum or names a file again: " + line);
        }
    }
    return digests;
}

/// Digests by path, from the bill of materials.
std::map<std::string, std::string> readBillOfMaterials(const fs::path& folder) {
    std::map<std::string, std::string> digests;
    const Json bill = Json::parse(readInput((folder / billOfMaterialsFile).string()));
    for (const Json& component : bill.at("components")) {
        if (component.contains("hashes")) {
            digests[component.at("bom-ref")] = component.at("hashes").at(0).at("content");
        }
    }
    return digests;
}

void lookAtStamp(const std::string& path, const std::string& image, const ProductFacts& facts,
                 Findings& findings) {
    std::string code, name;
    if (!readStamp(image, code, name) || code.empty()) {
        findings.add(path, "is not stamped; make it with \"installer-tool stamp\"");
        return;
    }
    if (code != facts.code) {
        findings.add(path, "is stamped \"" + code + "\", not \"" + facts.code + "\"");
    }
    if (name != facts.name) {
        findings.add(
            path, "is stamped with the name \"" + toUtf8(name) + "\", not \"" + facts.name + "\"");
    }
    const std::optional<std::string> shown = versionText(image, "ProductName");
    if (shown != name) {
        findings.add(path, "shows \"" + shown.value_or("") +
                               "\" as its product in the version resource, not its stamped name");
    }
}

void lookAtInstaller(const fs::path& folder, const ProductFacts& facts, const Choices& choices,
                     const std::string& digest, const std::string& billedDigest,
                     Findings& findings) {
    const std::string path = releasedPath(facts.code);
    const fs::path file = folder / path;
    if (!fs::exists(file)) {
        findings.add(path, "is missing; make the release anew");
        return;
    }
    ++findings.installers;
    const std::string image = readInput(file.string());
    const std::string actual = sha256(image);
    if (digest.empty()) {
        findings.add(path, "has no line in SHA256SUMS");
    } else if (digest != actual) {
        findings.add(path, "differs from its checksum in SHA256SUMS: it was damaged or changed");
    }
    if (billedDigest != actual) {
        findings.add(path,
                     std::string("differs from the bill of materials, ") + billOfMaterialsFile);
    }
    if (const std::string damage = executableDamage(image); !damage.empty()) {
        findings.add(path, damage);
        return;
    }
    lookAtStamp(path, image, facts, findings);
    for (const std::string& missing : missingProtections(image)) {
        findings.add(path, missing);
    }
    if (!isSigned(image)) {
        if (choices.requiresSignatures) {
            findings.add(path, "is not signed");
        }
        return;
    }
    ++findings.signatures;
    if (!choices.verifyCommand.empty()) {
        const CommandResult result = runCommand(choices.verifyCommand, {{"in", file.string()}});
        if (!result.good) {
            findings.add(path, "has a signature that does not verify: " + result.output);
        }
    }
}

Findings look(const Choices& choices) {
    const fs::path folder = choices.folder;
    if (!fs::is_directory(folder)) {
        throw Refusal("\"" + choices.folder + "\" is no folder that can be read; name a release.");
    }
    Findings findings;
    const std::map<std::string, std::string> digests = readChecksums(folder, findings);
    std::map<std::string, std::string> billed;
    try {
        billed = readBillOfMaterials(folder);
    } catch (const std::exception& error) {
        findings.add(billOfMaterialsFile, std::string("cannot be used: ") + error.what());
    }
    const auto digestIn = [](const std::map<std::string, std::string>& all,
                             const std::string& path) {
        const auto found = all.find(path);
        return found == all.end() ? std::string() : found->second;
    };
    std::map<std::string, bool> known = {{checksumsFile, true}, {billOfMaterialsFile, true}};
    for (const ProductFacts& facts : allProductFacts()) {
        const std::string path = releasedPath(facts.code);
        known[path] = true;
        lookAtInstaller(folder, facts, choices, digestIn(digests, path), digestIn(billed, path),
                        findings);
    }
    for (const auto& [path, digest] : digests) {
        if (!known.contains(path)) {
            findings.add(path, "stands in SHA256SUMS and is no product's installer");
        }
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        const std::string path = fs::relative(entry.path(), folder).generic_string();
        if (!entry.is_directory() && !known.contains(path)) {
            findings.add(path, "does not belong to a release");
        }
    }
    if (findings.signatures != 0 && findings.signatures != findings.installers) {
        findings.add(choices.folder, "some installers are signed and some are not: " +
                                         std::to_string(findings.signatures) + " of " +
                                         std::to_string(findings.installers));
    }
    return findings;
}

std::string signatureSummary(const Findings& findings, const Choices& choices) {
    if (findings.signatures == 0) {
        return "UNSIGNED";
    }
    return choices.verifyCommand.empty() ? "signed; signatures NOT VERIFIED: no verify command"
                                         : "signed";
}

void verify(const Choices& choices, Session& session) {
    const Findings findings = look(choices);
    const bool good = findings.problems.empty();
    session.exitCode = good ? exitGood : exitWrong;
    if (session.json) {
        Json document = {{"folder", choices.folder},
                         {"installers", findings.installers},
                         {"signed", findings.signatures},
                         {"problems", Json::array()},
                         {"good", good}};
        for (const Problem& problem : findings.problems) {
            document["problems"].push_back({{"file", problem.file}, {"problem", problem.what}});
        }
        printJson(document);
        return;
    }
    for (const Problem& problem : findings.problems) {
        std::cout << "PROBLEM   " << problem.file << ": " << problem.what << '\n';
    }
    std::cout << findings.installers << " installers, " << signatureSummary(findings, choices)
              << "; "
              << (good ? "checksums, stamps and protections are right" : "NOT AS IT SHOULD BE")
              << '\n';
}

}  // namespace

void addVerifyCommand(CLI::App& app, Session& session) {
    CLI::App* const command = addCommand(
        app, session, "verify",
        "Checks a release: checksums, stamps, bill of materials, protections, signatures");
    const auto choices = std::make_shared<Choices>();
    command->add_option("FOLDER", choices->folder, "The release")->required();
    command->add_option("--verify-command", choices->verifyCommand,
                        "Verifies a signature: any command, in which {in} is replaced");
    command->add_flag("--require-signatures", choices->requiresSignatures,
                      "Count an unsigned installer as wrong");
    command->callback([choices, &session] { verify(*choices, session); });
}
