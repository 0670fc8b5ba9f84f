#include "ui/html_help.h"

#include "platform/ansi_text.h"

std::string helpFilePath(const std::string& programPath) {
    const std::size_t dot = programPath.rfind('.');
    const std::size_t backslash = findLastBackslash(programPath);
    const bool hasExtension =
        dot != std::string::npos && (backslash == std::string::npos || dot > backslash);
    return programPath.substr(0, hasExtension ? dot : std::string::npos) + ".chm";
}
