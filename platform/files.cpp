#include "platform/files.h"

#include <algorithm>
#include <functional>

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

std::string versionResourceText(std::string_view block, const char* value, std::size_t length) {
    const char* end = block.data() + block.size();
    const std::less<> before;
    if (length == 0 || before(value, block.data()) || !before(value, end)) {
        return {};
    }
    const std::string_view text(value, static_cast<std::size_t>(end - value));
    return "Version " + std::string(text.substr(0, text.find('\0')));
}
