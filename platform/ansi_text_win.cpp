#include "platform/ansi_text_win.h"

#include <windows.h>

CodePage systemCodePage() {
    CPINFO info{};  // where Windows cannot say, no character has a length
    GetCPInfo(CP_ACP, &info);
    return describedCodePage(info.MaxCharSize, info.LeadByte, [](unsigned char byte) {
        char character = static_cast<char>(byte);
        CharLowerBuffA(&character, 1);
        return static_cast<unsigned char>(character);
    });
}
