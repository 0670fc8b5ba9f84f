#include "framework/dialog_win.h"

#include <gtest/gtest.h>

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

  protected:
    MessageMap GetMessageMap() const override {
        static constexpr MessageEntry messages[] = {
            onMessage<&MappedDialog::OnAnswered>(answered),
            onMessage<&MappedDialog::OnLeftToDefault>(leftToDefault),
        };
        static constexpr CommandEntry commands[] = {onClicked<&MappedDialog::OnButton>(100)};
        return {messages, commands};
    }

  private:
    LRESULT OnAnswered(WPARAM wParam, LPARAM lParam) {
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    LRESULT OnLeftToDefault(WPARAM, LPARAM) { return Default() + 5; }
    void OnButton() { EndDialog(77); }
};

TEST(Dialog, HandlesWhatItsMapNames) {
    MappedDialog dialog;
    EXPECT_EQ(driveModal([&] { return dialog.DoModal(); },
                         [](HWND window) {
                             EXPECT_EQ(SendMessageA(window, answered, 4, 2), 42);
                             EXPECT_EQ(SendMessageA(window, leftToDefault, 0, 0), 0);
                             // Another notification of the same control is not a click.
                             SendMessageA(window, WM_COMMAND, MAKEWPARAM(100, BN_SETFOCUS), 0);
                             EXPECT_TRUE(IsWindow(window));
                             SendMessageA(window, WM_COMMAND, MAKEWPARAM(100, BN_CLICKED), 0);
                         }),
              77);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(CDialog(999).DoModal(), -1) << "no such resource";
}

}  // namespace
