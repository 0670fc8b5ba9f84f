#include "desk/executables/shell_command.h"

#include <cstdio>

#ifdef _WIN32
#define popen _popen
#define pclose _pclose
#endif

namespace {

std::string quoted(const std::string& text) {
#ifdef _WIN32
    return '"' + text + '"';  // neither a path nor a product's name holds a quote
#else
    std::string result = "'";
    for (const char character : text) {
        result += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return result + '\'';
#endif
}

}  // namespace

CommandResult runCommand(const std::string& command,
                         const std::map<std::string, std::string>& values) {
    std::string line;
    for (std::size_t position = 0; position < command.size();) {
        bool replaced = false;
        for (const auto& [key, value] : values) {
            const std::string placeholder = '{' + key + '}';
            if (command.compare(position, placeholder.size(), placeholder) == 0) {
                line += quoted(value);
                position += placeholder.size();
                replaced = true;
                break;
            }
        }
        if (!replaced) {
            line += command[position++];
        }
    }
    line = "(" + line + ") 2>&1";
    CommandResult result;
    std::FILE* const pipe = popen(line.c_str(), "r");
    if (pipe == nullptr) {
        result.output = "the shell cannot be started";
        return result;
    }
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) {
        result.output.append(buffer, count);
    }
    result.good = pclose(pipe) == 0;
    return result;
}
