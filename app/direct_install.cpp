#include "app/direct_install.h"

#include <algorithm>
#include <string_view>

#include "catalogue/product_catalogue.h"
#include "installed/analyser_path.h"
#include "platform/ansi_text.h"
#include "platform/format_text.h"

std::string analyserPath(const InstalledProduct& product) {
    return formatCut("%s\\%s", product.installLocation.c_str(), analyser::path);
}

std::string importMarkerPath(const InstalledProduct& product) {
    return formatCut("%s\\liveimport.ini", product.installLocation.c_str());
}

ViewerRemoval planViewerRemoval(const std::string& uninstallCommand,
                                const std::string& sourceDirectory) {
    constexpr std::string_view setupProgram = "setup.exe";
    const std::size_t setup = findIgnoringCase(uninstallCommand, setupProgram);
    if (setup == std::string::npos) {
        return {uninstallCommand, "", false, "", ""};
    }
    const std::size_t programEnd = setup + setupProgram.size() + 1;
    const std::size_t argumentsStart = std::min(programEnd + 1, uninstallCommand.size());
    const std::string program = uninstallCommand.substr(0, programEnd);
    const std::string target = replaceAll(program, setupProgram, replacementUninstallerFile, true);
    return {.program = program,
            .arguments = uninstallCommand.substr(argumentsStart),
            .runsSetup = true,
            .copyFrom = formatCut("%s%s", sourceDirectory.c_str(), replacementUninstallerFile),
            .copyTo = replaceAll(target, "\"", "", false)};
}

Message couldNotStopMessage(const InstalledProduct& product, std::uint32_t code) {
    // Signed: WAIT_FAILED reads -1.
    return {
        formatText("Could not stop \"%s\" - %d. Please close all copies of %s and restart the "
                   "installation.",
                   product.installLocation.c_str(), static_cast<std::int32_t>(code),
                   product.displayName.c_str())};
}

void FormatTimestamp(const SystemTime& time, std::string& text, bool readable, char lead) {
    constexpr std::size_t maximumLength = 32;
    text = readable ? formatText("%4d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                                 time.hour, time.minute, time.second)
                    : formatText("%c%4d%02d%02d%02d%02d%02d", lead, time.year, time.month, time.day,
                                 time.hour, time.minute, time.second);
    if (text.size() > maximumLength) {
        text.resize(maximumLength);
    }
}

std::string copyFailedLogLine(const SystemTime& time, const std::string& source,
                              const std::string& target, std::uint32_t error) {
    std::string line;
    FormatTimestamp(time, line, true, '#');
    // Kept: the compiled-in build, whatever the product-data file says; it tells which installer
    // wrote the line.
    return formatText("%s Version %s CopyFile from \"%s\" to \"%s\" failed - %u", line.c_str(),
                      compiledInBuild, source.c_str(), target.c_str(), error);
}
