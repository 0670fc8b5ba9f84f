#include "platform/ansi_text_win.h"

#include <windows.h>

#include <gtest/gtest.h>

TEST(SystemCodePage, AgreesWithWindowsOnEveryByte) {
    const CodePage page = systemCodePage();
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(page.lead[byte], IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0) << byte;
    }
}
