#include <filesystem>
#include <iostream>
#include <memory>

#include "platform/ansi_text.h"
#include "tools/desk/command.h"
#include "tools/desk/media_report.h"
#include "tools/desk/whole_file.h"

namespace {

namespace fs = std::filesystem;

/// The path of a file in `folder` by its name in any letter case, as Windows finds it.
std::optional<std::string> findFile(const fs::path& folder, const std::string& name) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        if (equalIgnoringCase(entry.path().filename().string(), name)) {
            return entry.path().string();
        }
    }
    return std::nullopt;
}

struct Choices {
    std::string installer;
    std::string folder;
    std::string directory = "D:\\";
};

int check(const Choices& choices, bool json) {
    const std::optional<std::string> installer = readWholeFile(choices.installer);
    if (!installer) {
        throw Refusal("Cannot read \"" + choices.installer + "\".");
    }
    if (!fs::is_directory(choices.folder)) {
        throw Refusal("\"" + choices.folder + "\" is not a folder.");
    }
    const fs::path installerFolder = fs::absolute(choices.installer).parent_path();
    const MediaReport report = examineMedia(
        *installer,
        [&](const std::string& name) -> std::optional<std::string> {
            const std::optional<std::string> path = findFile(installerFolder, name);
            return path ? readWholeFile(*path) : std::nullopt;
        },
        [&](const std::string& name) { return findFile(choices.folder, name).has_value(); },
        choices.directory);
    std::cout << (json ? asJson(report) : asText(report));
    return report.isComplete() ? exitGood : exitWrong;
}

}  // namespace

void addCheckCommand(CLI::App& app, Session& session) {
    CLI::App* const command = addCommand(
        app, session, "check", "Tells what a stamped installer will do with a media folder");
    const auto choices = std::make_shared<Choices>();
    command->add_option("INSTALLER", choices->installer, "The stamped installer")->required();
    command->add_option("FOLDER", choices->folder, "The media folder")->required();
    command->add_option("--dir", choices->directory, "The folder as the launcher names it")
        ->capture_default_str();
    command->callback([choices, &session] { session.exitCode = check(*choices, session.json); });
}
