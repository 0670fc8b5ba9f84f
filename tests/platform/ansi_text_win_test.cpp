#include "platform/ansi_text_win.h"

#include <windows.h>

#include <gtest/gtest.h>

TEST(SystemCodePage, AgreesWithWindowsOnEveryByte) {
    const CodePage page = systemCodePage();
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(page.lead[byte], IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0) << byte;
    }
    EXPECT_EQ(page.lower['Q'], 'q');
    EXPECT_EQ(page.lower['['], '[');
    EXPECT_EQ(page.lower[0xC9], GetACP() == 1252 ? 0xE9 : page.lower[0xC9]);
}
