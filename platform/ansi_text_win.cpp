#include "platform/ansi_text_win.h"

#include <windows.h>

CodePage systemCodePage() {
    CodePage page;
    CPINFO info{};
    if (GetCPInfo(CP_ACP, &info) != 0) {
        // Pairs of first and last lead byte, ended by a pair of zeros.
        for (int pair = 0; pair + 1 < MAX_LEADBYTES && info.LeadByte[pair] != 0; pair += 2) {
            for (unsigned byte = info.LeadByte[pair]; byte <= info.LeadByte[pair + 1]; ++byte) {
                page.lead[byte] = true;
            }
        }
    }
    for (unsigned byte = 0; byte < page.lower.size(); ++byte) {
        char character = static_cast<char>(byte);
        if (!page.lead[byte]) {
            CharLowerBuffA(&character, 1);
        }
        page.lower[byte] = static_cast<unsigned char>(character);
    }
    return page;
}
