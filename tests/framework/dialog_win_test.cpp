#include "framework/dialog_win.h"

#include <gtest/gtest.h>

#include "framework/controls_win.h"
#include "tests/framework/modal_driver_win.h"

namespace {

constexpr UINT answered = WM_APP, leftToDefault = WM_APP + 1;

/// From a template in memory, without controls.
struct EmptyTemplate {
    DLGTEMPLATE header{WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 0, 0, 10, 10, 200, 100};
    WORD menu = 0, windowClass = 0, title = 0;
} const emptyTemplate;

class MappedDialog : public CDialog {
  public:
    MappedDialog() : CDialog(&emptyTemplate.header) {}

    int clicks = 0;

  protected:
    MessageMap GetMessageMap() const override {
        static constexpr MessageEntry messages[] = {
            onMessage<&MappedDialog::OnAnswered>(answered),
            onMessage<&MappedDialog::OnLeftToDefault>(leftToDefault)};
        static constexpr CommandEntry commands[] = {onClicked<&MappedDialog::OnButton>(100)};
        return {messages, commands};
    }

  private:
    LRESULT OnAnswered(WPARAM wParam, LPARAM lParam) {
        SendMessageA(m_hWnd, leftToDefault, 0, 0);  // as while it waits
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    LRESULT OnLeftToDefault(WPARAM, LPARAM) { return Default() + 5; }
    void OnButton() {
        ++clicks;
        EndDialog(77);
    }
};

TEST(Dialog, HandlesWhatItsMapNames) {
    MappedDialog dialog;
    const INT_PTR result = driveModal(dialog, [&](HWND window) {
        EXPECT_EQ(SendMessageA(window, answered, 4, 2), 42);
        EXPECT_EQ(SendMessageA(window, leftToDefault, 0, 0), 0);
        // Another notification of the same control is not a click.
        SendMessageA(window, WM_COMMAND, MAKEWPARAM(100, BN_SETFOCUS), 0);
        EXPECT_EQ(dialog.clicks, 0);
        const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(window, DWLP_DLGPROC));
        EXPECT_TRUE(procedure(window, WM_COMMAND, 100, 0)) << "a click";
    });
    EXPECT_EQ(result, 77);
    EXPECT_EQ(dialog.clicks, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(CDialog(999).DoModal(), -1) << "no such resource";
}

WNDPROC listProcedure;

/// A list view that counts characters of two bytes where its caller expects bytes.
LRESULT CALLBACK countCharacters(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallWindowProcA(listProcedure, window, message, wParam, lParam);
    return message == LVM_GETITEMTEXTA ? result / 2 : result;
}

TEST(ListControl, TakesTextsUpToTheirTerminator) {
    InitCommonControls();
    CListCtrl list;
    list.m_hWnd = CreateWindowExA(0, WC_LISTVIEWA, "", WS_POPUP | LVS_REPORT, 0, 0, 9, 9, nullptr,
                                  nullptr, nullptr, nullptr);
    listProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(list.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(countCharacters)));
    // None, the longest display name, and more.
    for (const std::size_t length : {0u, 1u, 259u, 600u}) {
        const std::string text(length, '\xE9');
        list.InsertItem(0, text);
        const std::string taken = list.GetItemText(0, 0);
        EXPECT_TRUE(taken == text) << taken.size() << " of " << length;
    }
    EXPECT_EQ(list.InsertItem(4, "last"), 4);
    DestroyWindow(list.m_hWnd);
}

}  // namespace
