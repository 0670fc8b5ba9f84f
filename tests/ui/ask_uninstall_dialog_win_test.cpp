#include "ui/ask_uninstall_dialog_win.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/framework/modal_driver_win.h"
#include "ui/resource.h"

TEST(AskUninstallDialog, TakesNoSecondAnswer) {
    const std::vector<InstalledProduct> products{{"beta", "", ""}, {"Alpha", "", ""}};
    std::vector<std::string> removed;
    const CAskUninstallDlg* shown = nullptr;
    // As while a message box stands that the prompt does not own.
    const CAskUninstallDlg::Remove remove = [&](const std::string& name) {
        removed.push_back(name);
        for (const WPARAM button : {IDYES, IDNO, IDOK, IDCANCEL}) {
            if (removed.size() == 1) {
                SendMessageA(shown->m_hWnd, WM_COMMAND, button, 0);
                EXPECT_TRUE(IsWindowVisible(shown->m_hWnd)) << "ended by button " << button;
            }
        }
    };
    CAskUninstallDlg dialog(products, remove);
    shown = &dialog;
    const INT_PTR result = driveModal(
        dialog, [](HWND window) { SendMessageA(GetDlgItem(window, IDYES), BM_CLICK, 0, 0); });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(removed, (std::vector<std::string>{"Alpha", "beta"}));
}

// Sorting borrows them.
TEST(AskUninstallDialog, GivesBackTheParametersOfItsRows) {
    const std::vector<InstalledProduct> products{{"beta", "", ""}, {"Alpha", "", ""}};
    const CAskUninstallDlg::Remove remove = [](const std::string&) {};
    CAskUninstallDlg dialog(products, remove);
    std::ignore = driveModal(dialog, [](HWND window) {
        CListCtrl list;
        list.m_hWnd = GetDlgItem(window, IDC_VERSION_LIST);
        EXPECT_EQ(list.GetItemText(0, 1), "Alpha");
        EXPECT_EQ(list.GetItemData(0), 0);
        EXPECT_EQ(list.GetItemData(1), 0);
    });
}
