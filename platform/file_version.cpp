#include "platform/file_version.h"

#include <functional>

std::string versionResourceText(std::string_view block, const char* value, std::size_t length) {
    const char* end = block.data() + block.size();
    const std::less<> before;
    if (length == 0 || before(value, block.data()) || !before(value, end)) {
        return {};
    }
    const std::string_view text(value, static_cast<std::size_t>(end - value));
    return "Version " + std::string(text.substr(0, text.find('\0')));
}
