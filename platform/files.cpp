#include "platform/files.h"

#include <algorithm>

#include "platform/ansi_text.h"

bool isFullPath(std::string_view path) {
    return path.starts_with("\\\\") || (path.size() > 2 && path[1] == ':' && path[2] == '\\');
}

std::string directoryOfProgram(std::string_view programPath) {
    constexpr std::size_t maximumLength = 256;
    const std::size_t drive = programPath.size() > 1 && programPath[1] == ':' ? 2 : 0;
    // One behind the last separator; 0 when there is none.
    const std::size_t end =
        std::max({programPath.rfind('/') + 1, findLastBackslash(programPath) + 1, drive});
    return end - drive > maximumLength ? std::string() : std::string(programPath.substr(0, end));
}
