#include "app/direct_install.h"
#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    const std::string text(input);
    const ViewerRemoval removal = planViewerRemoval(text, "E:\\");
    require(text.starts_with(removal.program) && text.ends_with(removal.arguments));
    if (!removal.runsSetup) {
        require(removal.program == text && removal.arguments.empty());
        require(findIgnoringCase(text, "setup.exe") == std::string::npos);
        return;
    }
    // What is left out is one character, and only when there was one.
    const std::size_t kept = removal.program.size() + removal.arguments.size();
    require(kept == input.size() || kept + 1 == input.size());
    require(findIgnoringCase(removal.program, "setup.exe") + 10 >= removal.program.size());
    require(removal.copyTo.find('"') == std::string::npos);
    require(removal.copyTo.find("UninstallQmx.exe") != std::string::npos);
}
