#include "app/uninstall_command.h"

#include "app/media_files.h"
#include "platform/ansi_text.h"
#include "platform/replace_all.h"

namespace {

constexpr std::string_view setupProgram = "setup.exe";

}  // namespace

UninstallCommand cutUninstallCommand(const std::string& command) {
    const std::size_t setup = findIgnoringCase(command, setupProgram);
    if (setup == std::string::npos) {
        return {command, "", false};
    }
    const std::size_t programEnd = setup + setupProgram.size() + 1;
    const std::size_t argumentsStart = programEnd + 1;
    return {command.substr(0, programEnd),
            argumentsStart < command.size() ? command.substr(argumentsStart) : "", true};
}

std::string uninstallerTarget(const UninstallCommand& command) {
    const std::string target = replaceAll(command.program, setupProgram, uninstallerFile, true);
    return replaceAll(target, "\"", "", false);
}
