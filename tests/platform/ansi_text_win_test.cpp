#include "platform/ansi_text_win.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

TEST(SystemCodePage, AgreesWithWindowsOnEveryByte) {
    const CodePage page = systemCodePage();
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(page.lead[byte], IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0) << byte;
    }
    EXPECT_EQ(page.lower['Q'], 'q');
    EXPECT_EQ(page.lower['['], '[');
    if (GetACP() == 1252) {
        EXPECT_EQ(page.lower[0xC9], 0xE9);
    }
}

}  // namespace
