// Looks at a release that somebody else made.
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
    std::vector<std::string> found = {std::to_string(report.installers) + " installers" +
                                      (report.build.empty() ? "" : " of build " + report.build)};
    found.insert(found.end(), report.signers.begin(), report.signers.end());
    printResult(
        session,
        {{"folder", choices.folder},
         {"installers", report.installers},
         {"signed", report.signatures},
         {"signatures", report.signers},
         {"build", report.build},
         {"problems", report.problems},
         {"good", good}},
        inLines("PROBLEM   ", asLines(report.problems)) + joined(found) +
            (good ? "; checksums, stamps and protections are right\n" : "; NOT AS IT SHOULD BE\n"));
    session.exitCode = good ? exitGood : exitWrong;
}

}  // namespace

void addVerifyOptions(CLI::App& command, Session& session) {
    const auto choices = std::make_shared<Choices>();
    command.add_option("FOLDER", choices->folder, "The release")->required();
    command.add_option("--build", choices->build, "The build that the version resources must show");
    addSignatureOptions(command, choices->signature);
    command.callback([choices, &session] { verify(*choices, session); });
}
