#include "app/install_log.h"

#include "catalogue/build_number.h"
#include "platform/ansi_text.h"
#include "platform/format_text.h"
#include "platform/windows_constants.h"

bool isReparsePoint(std::uint32_t attributes) {
    return (attributes & fileAttributeReparsePoint) != 0;
}

bool mayAppendToLog(const InstallLogFacts& facts) {
    // The folder can have been another one for just the moment in which the file was opened.
    const bool liesInFolder =
        facts.folderPath.empty() ||
        equalIgnoringCase(facts.filePath, withTrailingBackslash(facts.folderPath) + installLogFile);
    return !isReparsePoint(facts.folderAttributes) && !isReparsePoint(facts.fileAttributes) &&
           facts.fileLinks == 1 && liesInFolder;
}

void FormatTimestamp(const SystemTime& time, std::string& text, bool readable, char lead) {
    constexpr std::size_t maximumLength = 32;
    text = readable ? formatText("%4d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                                 time.hour, time.minute, time.second)
                    : formatText("%c%4d%02d%02d%02d%02d%02d", lead, time.year, time.month, time.day,
                                 time.hour, time.minute, time.second);
    text = text.substr(0, maximumLength);
}

std::string copyFailedLogLine(const SystemTime& time, const std::string& source,
                              const std::string& target, std::uint32_t error) {
    std::string line;
    FormatTimestamp(time, line, true, '#');
    // Kept: the compiled-in build, whatever the product-data file says; it tells which installer
    // wrote the line.
    return formatText("%s Version %s CopyFile from \"%s\" to \"%s\" failed - %u", line.c_str(),
                      INSTALLER_BUILD_TEXT, source.c_str(), target.c_str(), error);
}
