#include "app/direct_install.h"
#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(asText(data, size));
    const UninstallCommand command = cutUninstallCommand(text);
    require(text.starts_with(command.program) && text.ends_with(command.arguments));
    if (!command.runsSetup) {
        require(command.program == text && command.arguments.empty());
        require(findIgnoringCase(text, "setup.exe") == std::string::npos);
        return 0;
    }
    // What is left out is one character, and only when there was one.
    const std::size_t kept = command.program.size() + command.arguments.size();
    require(kept == size || kept + 1 == size);
    require(findIgnoringCase(command.program, "setup.exe") + 10 >= command.program.size());
    const std::string target = uninstallerTarget(command);
    require(target.find('"') == std::string::npos);
    require(target.find("UninstallQmx.exe") != std::string::npos);
    return 0;
}
