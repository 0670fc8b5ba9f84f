// Looks at a release that somebody else made.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "desk/commands/command.h"
#include "desk/media/release_folder.h"

namespace {

struct Choices {
    std::string folder;
    std::string build;
    SignatureChoices signature;
};

void verify(const Choices& choices, Session& session) {
    const ReleaseReport report = examineRelease(choices.folder, choices.build, choices.signature);
    const bool good = report.problems.empty();
    session.exitCode = good ? exitGood : exitWrong;
    if (session.json) {
        Json document = {{"folder", choices.folder},
                         {"installers", report.installers},
                         {"signed", report.signatures},
                         {"signatures", report.signers},
                         {"build", report.build},
                         {"problems", Json::array()},
                         {"good", good}};
        for (const FileProblem& problem : report.problems) {
            document["problems"].push_back({{"file", problem.file}, {"problem", problem.what}});
        }
        printJson(document);
        return;
    }
    for (const FileProblem& problem : report.problems) {
        std::cout << "PROBLEM   " << asLine(problem) << '\n';
    }
    std::cout << report.installers << " installers"
              << (report.build.empty() ? "" : " of build " + report.build);
    for (const std::string& signer : report.signers) {
        std::cout << ", " << signer;
    }
    std::cout << "; "
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
    command->add_option("--build", choices->build,
                        "The build that the version resources must show");
    addSignatureOptions(*command, choices->signature);
    command->callback([choices, &session] { verify(*choices, session); });
}
