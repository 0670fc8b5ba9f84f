#include "ui/install_dialog.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/framework/modal_driver.h"
#include "tests/ui/registered_help.h"
#include "ui/resource.h"

namespace {

const int everyControl[] = {
    IDC_INSTALL_PROMPT, IDC_LIVE_PRODUCT, IDC_FILE_VIEWER, IDC_DEMONSTRATION, IDOK,
    IDCANCEL,           IDC_HELP_BUTTON};

/// In client coordinates of the parent; of the screen for the dialog itself.
RECT area(HWND window) {
    RECT rectangle;
    GetWindowRect(window, &rectangle);
    if ((GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0) {
        MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&rectangle), 2);
    }
    return rectangle;
}

int height(HWND window) {
    return area(window).bottom - area(window).top;
}

/// Of one line in the prompt's font.
int lineHeight(HWND dialog) {
    const HWND prompt = GetDlgItem(dialog, IDC_INSTALL_PROMPT);
    const HDC context = GetDC(prompt);
    const auto font = reinterpret_cast<HFONT>(SendMessageA(prompt, WM_GETFONT, 0, 0));
    const HGDIOBJ previous = SelectObject(context, font);
    SIZE size{};
    GetTextExtentPoint32A(context, "X", 1, &size);
    SelectObject(context, previous);
    ReleaseDC(prompt, context);
    return size.cy;
}

void click(HWND dialog, int id) {
    SendMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

/// The control that has the focus; null when it is none of the dialog's.
HWND focus(HWND dialog) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
    return IsChild(dialog, info.hwndFocus) ? info.hwndFocus : nullptr;
}

/// Waits at most 5 seconds for the focus to be elsewhere than at `control`, or the dialog's end.
HWND focusBeyond(HWND dialog, HWND control) {
    const DWORD start = GetTickCount();
    while (IsWindow(dialog) && focus(dialog) == control && GetTickCount() - start < 5000) {
        Sleep(1);
    }
    return focus(dialog);
}

/// Presses a key that moves the focus or ends the dialog.
void pressKey(HWND dialog, WPARAM key) {
    const HWND control = focusBeyond(dialog, nullptr);
    PostMessageA(control, WM_KEYDOWN, key, 0);
    focusBeyond(dialog, control);
}

class InstallDialog : public testing::Test {
  protected:
    template <class Drive>
    INT_PTR drive(Drive steps) {
        return driveModal([this] { return dialog.DoModal(); }, steps);
    }

    CInstallDlg dialog{"Sample"};
};

TEST_F(InstallDialog, LooksAsTheFieldKnowsIt) {
    struct Control {
        int id;
        const char* text;
        RECT place;  // left, top, width, height in dialog units
    };
    const Control controls[] = {
        {IDC_LIVE_PRODUCT, "Live Product", {88, 25, 59, 10}},
        {IDC_FILE_VIEWER, "File Viewer", {88, 41, 59, 10}},
        {IDC_DEMONSTRATION, "Demonstration", {88, 57, 59, 10}},
        {IDOK, "Install", {34, 73, 50, 14}},
        {IDCANCEL, "Cancel", {93, 73, 50, 14}},
        {57670, "Help", {152, 73, 50, 14}},
        {4001, "Pick", {6, 5, 223, 14}},
    };
    dialog.SetCaption("Sample 16.4 Installation");
    dialog.SetPrompt("Pick");
    drive([&](HWND window) {
        char text[64]{};
        GetWindowTextA(window, text, sizeof text);
        EXPECT_STREQ(text, "Sample 16.4 Installation");
        for (const Control& control : controls) {
            const HWND child = GetDlgItem(window, control.id);
            GetWindowTextA(child, text, sizeof text);
            EXPECT_STREQ(text, control.text);
            RECT expected = control.place;
            MapDialogRect(window, &expected);
            expected.right += expected.left;
            expected.bottom += expected.top;
            const RECT actual = area(child);
            EXPECT_TRUE(EqualRect(&actual, &expected)) << control.text;
        }
        RECT expected{0, 0, 236, 94};
        MapDialogRect(window, &expected);
        RECT client;
        GetClientRect(window, &client);
        EXPECT_TRUE(EqualRect(&client, &expected));

        const LRESULT icon = SendMessageA(window, WM_GETICON, ICON_BIG, 0);
        EXPECT_NE(icon, 0);
        EXPECT_EQ(SendMessageA(window, WM_GETICON, ICON_SMALL, 0), icon);
        EXPECT_EQ(SendMessageA(window, WM_QUERYDRAGICON, 0, 0), icon);
    });
}

TEST_F(InstallDialog, TheChoiceIsTheResult) {
    struct Case {
        std::vector<int> clicks;
        INT_PTR result;
        unsigned productType;
    };
    const Case cases[] = {
        {{IDOK}, IDOK, 2},
        {{IDC_FILE_VIEWER, IDOK}, IDOK, 4},
        {{IDC_DEMONSTRATION, IDOK}, IDOK, 8},
        {{IDC_DEMONSTRATION, IDC_FILE_VIEWER, IDC_LIVE_PRODUCT, IDOK}, IDOK, 2},
        {{IDC_FILE_VIEWER, IDCANCEL}, IDCANCEL, 2},
    };
    for (const Case& test : cases) {
        CInstallDlg fresh("Sample");
        fresh.SetOfferDemonstration(true);
        fresh.SetOfferFileViewer(true);
        const INT_PTR result =
            driveModal([&] { return fresh.DoModal(); },
                       [&](HWND window) {
                           EXPECT_TRUE(IsDlgButtonChecked(window, IDC_LIVE_PRODUCT));
                           for (const int id : test.clicks) {
                               click(window, id);
                           }
                       });
        EXPECT_EQ(result, test.result);
        EXPECT_EQ(fresh.productType, test.productType);
    }
}

TEST_F(InstallDialog, WorksByKeyboard) {
    struct Case {
        std::vector<WPARAM> keys;
        INT_PTR result;
        unsigned productType;
    };
    const Case cases[] = {
        {{VK_RETURN}, IDOK, 2},
        {{VK_ESCAPE}, IDCANCEL, 2},
        {{VK_DOWN, VK_RETURN}, IDOK, 8},           // past the hidden choice
        {{VK_DOWN, VK_DOWN, VK_RETURN}, IDOK, 2},  // and around, within the choices
        {{VK_UP, VK_UP, VK_RETURN}, IDOK, 2},
        {{VK_DOWN, VK_TAB, VK_RETURN}, IDOK, 8},
        {{VK_TAB, VK_TAB, VK_RETURN}, IDCANCEL, 2},
    };
    for (const Case& test : cases) {
        CInstallDlg fresh("Sample");
        fresh.SetOfferDemonstration(true);
        EXPECT_EQ(driveModal([&] { return fresh.DoModal(); },
                             [&](HWND window) {
                                 for (const WPARAM key : test.keys) {
                                     pressKey(window, key);
                                 }
                             }),
                  test.result)
            << testing::PrintToString(test.keys);
        EXPECT_EQ(fresh.productType, test.productType) << testing::PrintToString(test.keys);
    }
}

TEST_F(InstallDialog, OffersTheLiveProductAlwaysAndTheOthersOnRequest) {
    for (const bool demonstration : {false, true}) {
        for (const bool viewer : {false, true}) {
            CInstallDlg fresh("Sample");
            fresh.SetOfferDemonstration(demonstration);
            fresh.SetOfferFileViewer(viewer);
            driveModal([&] { return fresh.DoModal(); },
                       [&](HWND window) {
                           const auto shown = [&](int id) -> bool {
                               return IsWindowVisible(GetDlgItem(window, id));
                           };
                           EXPECT_TRUE(shown(IDC_LIVE_PRODUCT));
                           EXPECT_EQ(shown(IDC_FILE_VIEWER), viewer);
                           EXPECT_EQ(shown(IDC_DEMONSTRATION), demonstration);
                       });
        }
    }
}

TEST_F(InstallDialog, GrowsDownwardForItsPrompt) {
    dialog.SetPrompt("1\n2\n3\n4\n5");
    drive([&](HWND window) {
        // Heights from the resource: 14 and 94 dialog units.
        RECT units{0, 14, 0, 94};
        MapDialogRect(window, &units);
        const HWND prompt = GetDlgItem(window, IDC_INSTALL_PROMPT);
        const int line = lineHeight(window);
        const int growth = 5 * line - units.top + 4;
        ASSERT_GT(growth, 4);
        EXPECT_EQ(height(prompt), units.top + growth);
        RECT client;
        GetClientRect(window, &client);
        EXPECT_EQ(client.bottom, units.bottom + growth);

        std::vector<RECT> before;
        for (const int id : everyControl) {
            before.push_back(area(GetDlgItem(window, id)));
        }
        const RECT dialogBefore = area(window);
        dialog.SetPrompt("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
        const int further = 8 * line - (units.top + growth) + 4;
        RECT dialogExpected = dialogBefore;
        dialogExpected.bottom += further;
        const RECT dialogAfter = area(window);
        EXPECT_TRUE(EqualRect(&dialogAfter, &dialogExpected));
        for (std::size_t i = 0; i < before.size(); ++i) {
            RECT expected = before[i];
            expected.top += everyControl[i] == IDC_INSTALL_PROMPT ? 0 : further;
            expected.bottom += further;
            const RECT after = area(GetDlgItem(window, everyControl[i]));
            EXPECT_TRUE(EqualRect(&after, &expected)) << everyControl[i];
        }

        dialog.SetPrompt("Short");
        EXPECT_EQ(height(window), dialogAfter.bottom - dialogAfter.top) << "never shrinks";
        char text[16]{};
        GetWindowTextA(prompt, text, sizeof text);
        EXPECT_STREQ(text, "Short");
    });
}

TEST_F(InstallDialog, AsksForHelpByButtonAndByF1) {
    const RegisteredHelp registration(REG_SZ, RegisteredHelp::recorder());
    recorded<int>("callCount") = 0;
    drive([&](HWND window) {
        EXPECT_EQ(SendMessageA(window, WM_HELP, 0, 0), TRUE);
        EXPECT_EQ(recorded<HWND>("lastOwner"), window);
        click(window, IDC_HELP_BUTTON);
        EXPECT_EQ(recorded<int>("callCount"), 2);
        EXPECT_EQ(&recorded<char>("lastFile"), RegisteredHelp::folder() + "\\windows_tests.chm");
    });
}

}  // namespace
