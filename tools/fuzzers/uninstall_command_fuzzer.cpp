#include "app/uninstall_command.h"
#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(asText(data, size));
    const UninstallCommand command = cutUninstallCommand(text);
    require(text.starts_with(command.program) && text.ends_with(command.arguments));
    require(command.program.size() + command.arguments.size() <= text.size());
    if (command.runsSetup) {
        const std::string target = uninstallerTarget(command);
        require(target.find('"') == std::string::npos);
        require(findIgnoringCase(target, "UninstallQmx.exe") != std::string::npos);
    } else {
        require(command.program == text && command.arguments.empty());
    }
    return 0;
}
