#include "ui/html_help.h"

#include "platform/ansi_text.h"
#include "platform/files.h"
#include "platform/windows_constants.h"

namespace {

std::string expanded(const std::string& text, std::string (*variable)(const std::string& name)) {
    std::string result;
    std::size_t copied = 0;
    for (;;) {
        const std::size_t start = text.find('%', copied);
        const std::size_t end = start == std::string::npos ? start : text.find('%', start + 1);
        if (end == std::string::npos) {
            return result.append(text, copied);
        }
        const std::string value = variable(text.substr(start + 1, end - start - 1));
        if (value.empty()) {
            // The second percent sign may be the first of another variable.
            result.append(text, copied, end - copied);
            copied = end;
        } else {
            result.append(text, copied, start - copied).append(value);
            copied = end + 1;
        }
    }
}

}  // namespace

std::string helpFilePath(const std::string& programPath) {
    const std::size_t name = findLastBackslash(programPath) + 1;  // 0 without a backslash
    const std::size_t dot = programPath.rfind('.');
    return programPath.substr(0, dot < name ? std::string::npos : dot) + ".chm";
}

std::string registeredControlPath(unsigned long type, const std::string& text,
                                  std::string (*variable)(const std::string& name)) {
    const std::string path = type == stringType             ? text
                             : type == expandableStringType ? expanded(text, variable)
                                                            : std::string();
    return isFullPath(path) ? path : std::string();
}
