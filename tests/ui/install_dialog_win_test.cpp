#include "ui/install_dialog_win.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/framework/modal_driver_win.h"

namespace {

/// Left, top, width and height; in client coordinates of the parent.
RECT area(HWND control) {
    RECT rectangle;
    GetWindowRect(control, &rectangle);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rectangle), 2);
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

// For a prompt that needs the room the dialog and the prompt grow, the other controls move down.
TEST(InstallDialog, GrowsForItsPrompt) {
    CInstallDlg dialog("Sample");
    dialog.SetPrompt("Short");
    driveModal(dialog, [&](HWND window) {
        const HWND prompt = GetDlgItem(window, IDC_INSTALL_PROMPT);
        std::map<HWND, RECT> places = {{window, area(window)}};
        for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            places[child] = area(child);
        }
        const auto expectGrown = [&](int growth) {
            for (auto [each, expected] : places) {
                const bool grows = each == window || each == prompt;
                (grows ? expected.bottom : expected.top) += growth;
                const RECT actual = area(each);
                EXPECT_TRUE(EqualRect(&actual, &expected))
                    << GetDlgCtrlID(each) << " by " << growth;
            }
        };
        const int height = area(prompt).bottom;
        // Wider than the prompt's control, and by how many widths.
        const std::string wide(120, 'W');
        SIZE line{};
        const HDC context = GetDC(prompt);
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageA(prompt, WM_GETFONT, 0, 0)));
        GetTextExtentPoint32A(context, wide.data(), static_cast<int>(wide.size()), &line);
        ReleaseDC(prompt, context);
        dialog.SetPrompt(wide);
        const int lines = 1 + line.cx / area(prompt).right;
        EXPECT_GT(lines, 2);
        expectGrown(lines * line.cy - height + 4);
        dialog.SetPrompt(wide + "\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
        const int grown = (lines + 7) * line.cy - height + 4;
        expectGrown(grown);
        dialog.SetPrompt("Short");
        expectGrown(grown);
        const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(window, DWLP_DLGPROC));
        EXPECT_FALSE(procedure(window, WM_PAINT, 0, 0)) << "not minimised";
        ShowWindow(window, SW_MINIMIZE);
        EXPECT_TRUE(procedure(window, WM_PAINT, 0, 0)) << "minimised";
        ShowWindow(window, SW_RESTORE);
        EXPECT_FALSE(procedure(window, WM_INITDIALOG, 0,
                               reinterpret_cast<LPARAM>(static_cast<CDialog*>(&dialog))))
            << "the focus is not set";
        const LRESULT icon = SendMessageA(window, WM_GETICON, ICON_BIG, 0);
        EXPECT_NE(icon, 0);
        EXPECT_EQ(SendMessageA(window, WM_GETICON, ICON_SMALL, 0), icon);
        EXPECT_EQ(SendMessageA(window, WM_QUERYDRAGICON, 0, 0), icon);
    });
}

}  // namespace
