#include "app/install_log.h"

#include "platform/ansi_text.h"

bool isReparsePoint(std::uint32_t attributes) {
    constexpr std::uint32_t reparsePoint = 0x400;  // FILE_ATTRIBUTE_REPARSE_POINT
    return (attributes & reparsePoint) != 0;
}

bool mayAppendToLog(const InstallLogFacts& facts) {
    // The folder can have been another one for just the moment in which the file was opened.
    const bool liesInFolder =
        facts.folderPath.empty() ||
        equalIgnoringCase(facts.filePath, withTrailingBackslash(facts.folderPath) + installLogFile);
    return !isReparsePoint(facts.folderAttributes) && !isReparsePoint(facts.fileAttributes) &&
           facts.fileLinks == 1 && liesInFolder;
}
