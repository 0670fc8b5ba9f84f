#include "framework/dialog.h"

#include <gtest/gtest.h>

#include "tests/framework/empty_template.h"
#include "tests/framework/modal_driver.h"

namespace {

constexpr UINT buttonId = 100;
constexpr UINT multiplied = WM_APP;
constexpr UINT leftAlone = WM_APP + 1;

const EmptyTemplate emptyTemplate;

class MappedDialog : public CDialog {
  public:
    MappedDialog() : CDialog(&emptyTemplate.header) {}

    int leftAloneCount = 0;
    int clickCount = 0;
    CWnd button;

  protected:
    bool OnInitDialog() override {
        CreateWindowExA(0, "Button", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, m_hWnd,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(buttonId)), nullptr, nullptr);
        BindControl(button, buttonId);
        button.SetWindowText("Bound");
        return true;
    }
    MessageMap GetMessageMap() const override {
        static constexpr MessageEntry messages[] = {
            onMessage<&MappedDialog::OnMultiplied>(multiplied),
            onMessage<&MappedDialog::OnLeftAlone>(leftAlone),
        };
        static constexpr CommandEntry commands[] = {onClicked<&MappedDialog::OnButton>(buttonId)};
        return {messages, commands};
    }

  private:
    LRESULT OnMultiplied(WPARAM wParam, LPARAM lParam) {
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    LRESULT OnLeftAlone(WPARAM, LPARAM) {
        ++leftAloneCount;
        return Default() + 5;
    }
    void OnButton() {
        ++clickCount;
        EndDialog(77);
    }
};

TEST(Dialog, HandlesWhatItsMapNames) {
    MappedDialog dialog;
    const INT_PTR result = driveModal(
        [&] { return dialog.DoModal(); },
        [&](HWND window) {
            EXPECT_EQ(window, dialog.m_hWnd);
            EXPECT_EQ(SendMessageA(window, multiplied, 4, 2), 42);
            EXPECT_EQ(SendMessageA(window, leftAlone, 0, 0), 0) << "the dialog manager's answer";
            EXPECT_EQ(SendMessageA(window, leftAlone + 1, 0, 0), 0);
            char text[16]{};
            GetDlgItemTextA(window, buttonId, text, sizeof text);
            EXPECT_STREQ(text, "Bound");
            // Another notification of the same control is not a click.
            SendMessageA(window, WM_COMMAND, MAKEWPARAM(buttonId, BN_SETFOCUS), 0);
            EXPECT_EQ(dialog.clickCount, 0);
            SendMessageA(GetDlgItem(window, buttonId), BM_CLICK, 0, 0);
        });
    EXPECT_EQ(result, 77);
    EXPECT_EQ(dialog.leftAloneCount, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, EnterConfirmsEscapeAndCloseBoxCancel) {
    struct Case {
        UINT message;
        WPARAM wParam;
        INT_PTR result;
    };
    for (const Case& test :
         {Case{WM_KEYDOWN, VK_RETURN, IDOK}, Case{WM_KEYDOWN, VK_ESCAPE, IDCANCEL},
          Case{WM_SYSCOMMAND, SC_CLOSE, IDCANCEL}}) {
        MappedDialog dialog;
        EXPECT_EQ(
            driveModal([&] { return dialog.DoModal(); },
                       [&](HWND window) { PostMessageA(window, test.message, test.wParam, 0); }),
            test.result);
    }
}

TEST(Dialog, MissingResourceIsAFailure) {
    EXPECT_EQ(CDialog(999).DoModal(), -1);
}

}  // namespace
