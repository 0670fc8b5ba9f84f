#include "installed/analyser_version.h"

#include "platform/ansi_text.h"
#include "platform/format_text.h"

namespace {

std::string pathBelow(std::string_view folder, const char* relativePath) {
    return formatPath("%s%s", withTrailingBackslash(folder).c_str(), relativePath);
}

}  // namespace

std::array<std::string, 2> analyserPaths(const InstallationRecord& record) {
    return {pathBelow(fieldText(record, "Installation Path"), "Executables\\Core\\qmx.exe"),
            pathBelow(fieldText(record, "Path"), "bin\\release\\qmx.exe")};
}

std::string_view versionPart(std::string_view fileVersion) {
    // Without such a character the position is npos, and behind npos comes 0.
    return fileVersion.substr(fileVersion.find_last_not_of("0123456789.") + 1);
}
