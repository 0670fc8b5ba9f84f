// The platform's printf, declared before a C++ header asks for the compiler's own, which would be a
// sixth of the program.
#define __USE_MINGW_ANSI_STDIO 0
#include <stdio.h>
#undef __USE_MINGW_ANSI_STDIO

#include <cstdarg>

#include "platform/format_text.h"

namespace {

std::string formatArguments(const char* format, va_list arguments) {
    va_list measured;
    va_copy(measured, arguments);
    const int length = vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length < 0) {
        return {};
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

}  // namespace

std::string formatText(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string text = formatArguments(format, arguments);
    va_end(arguments);
    return text;
}

std::string formatCut(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string text = formatArguments(format, arguments);
    va_end(arguments);
    if (text.size() > maximumPathLength) {
        text.resize(maximumPathLength);
    }
    return text;
}
