#include "desk/executables/shell_command.h"

#include <sys/wait.h>

#include <cstdio>

namespace {

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char character : text) {
        result += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return result + '\'';
}

}  // namespace

CommandResult runCommand(std::string command, const std::map<std::string, std::string>& values) {
    for (std::size_t start = 0; (start = command.find('{', start)) != std::string::npos;) {
        const std::size_t end = command.find('}', start);
        const auto value = end == std::string::npos
                               ? values.end()
                               : values.find(command.substr(start + 1, end - start - 1));
        const std::string text = value == values.end() ? "{" : quoted(value->second);
        command.replace(start, value == values.end() ? 1 : end - start + 1, text);
        start += text.size();
    }
    CommandResult result;
    std::FILE* const pipe = popen(("(" + command + "\n) 2>&1").c_str(), "r");
    if (pipe == nullptr) {
        result.output = "the shell cannot be started";
        return result;
    }
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) {
        result.output.append(buffer, count);
    }
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}
