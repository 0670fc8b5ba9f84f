// The platform's printf, declared before a C++ header asks for the compiler's own, which would be a
// sixth of the program.
#define __USE_MINGW_ANSI_STDIO 0
#include <stdio.h>
#undef __USE_MINGW_ANSI_STDIO

#include <algorithm>
#include <cstdarg>

#include "platform/format_text.h"
#include "platform/windows_constants.h"

std::string formatText(const char* format, ...) {
    va_list arguments, measured;
    va_start(arguments, format);
    va_copy(measured, arguments);
    const int length = vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    if (length > 0) {
        vsnprintf(text.data(), text.size() + 1, format, arguments);
    }
    va_end(arguments);
    return text;
}

std::string composeCut(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text.append(part);
    }
    return text.substr(0, maximumPathLength);
}
