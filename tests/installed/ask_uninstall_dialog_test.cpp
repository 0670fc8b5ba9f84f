#include "installed/ask_uninstall_dialog.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "tests/installed/scratch_folder.h"
#include "ui/resource.h"

namespace {

using Names = std::vector<std::string>;

/// Does something with the dialog once it is initialised, within its own thread.
class ScriptedDialog : public CAskUninstallDlg {
  public:
    ScriptedDialog(const std::vector<InstalledProduct>& products,
                   std::function<void(ScriptedDialog&)> script)
        : CAskUninstallDlg(products), script(std::move(script)) {}

    std::string text(int id) const {
        char buffer[200] = "";
        GetDlgItemTextA(m_hWnd, id, buffer, sizeof buffer);
        return buffer;
    }
    void click(int id) { SendDlgItemMessageA(m_hWnd, id, BM_CLICK, 0, 0); }
    /// Once everything asked for so far is done.
    void clickLater(int id) { PostMessageA(m_hWnd, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0); }
    void pressKey(WPARAM key) { PostMessageA(versions.m_hWnd, WM_KEYDOWN, key, 0); }
    Names ticked() const {
        Names names;
        for (int item = 0; item < versions.GetItemCount(); ++item) {
            if (versions.GetCheck(item)) {
                names.push_back(versions.GetItemText(item, 1));
            }
        }
        return names;
    }

    CListCtrl versions;

  protected:
    bool OnInitDialog() override {
        const bool setFocus = CAskUninstallDlg::OnInitDialog();
        BindControl(versions, IDC_VERSION_LIST);
        script(*this);
        return setFocus;
    }

  private:
    std::function<void(ScriptedDialog&)> script;
};

class AskUninstall : public testing::Test {
  protected:
    AskUninstall() {
        for (const char* program : {"b1.exe", "a.exe", "b2.exe"}) {
            const std::string path = folder.addProgram(program).string();
            products.push_back({program[0] == 'a' ? "Alpha 12" : "beta 2", path, ""});
        }
    }

    INT_PTR show(std::function<void(ScriptedDialog&)> script) {
        return ScriptedDialog(products, std::move(script)).DoModal();
    }

    /// The uninstallers that ran, in order.
    Names ran() const {
        std::ifstream file(folder.path / "runs.txt");
        Names names;
        for (std::string name; std::getline(file, name);) {
            names.push_back(name);
        }
        return names;
    }

    const ScratchFolder folder;
    std::vector<InstalledProduct> products;
};

TEST_F(AskUninstall, ListsEverythingTickedAndSorted) {
    EXPECT_EQ(show([](ScriptedDialog& dialog) {
                  EXPECT_EQ(dialog.ticked(), (Names{"Alpha 12", "beta 2", "beta 2"}));
                  EXPECT_EQ(dialog.versions.GetItemData(0), 0);
                  EXPECT_EQ(dialog.text(IDC_UNINSTALL_QUESTION),
                            "Would you like to uninstall them?");
                  EXPECT_EQ(dialog.text(IDC_VERSIONS_FOUND).substr(0, 31),
                            "We found the following versions");
                  EXPECT_EQ(IsDlgButtonChecked(dialog.m_hWnd, IDC_SELECT_ALL), 1u);
                  EXPECT_EQ(ListView_GetColumnWidth(dialog.versions.m_hWnd, 0), 20);
                  EXPECT_EQ(ListView_GetColumnWidth(dialog.versions.m_hWnd, 1), 400);
                  const auto style =
                      static_cast<DWORD>(GetWindowLongA(dialog.versions.m_hWnd, GWL_STYLE));
                  EXPECT_EQ(ListView_GetExtendedListViewStyle(dialog.versions.m_hWnd), style | 4);
                  dialog.clickLater(IDNO);
              }),
              IDCANCEL);
    EXPECT_EQ(ran(), Names());
}

TEST_F(AskUninstall, AsksAboutOneVersionInTheSingular) {
    products.resize(1);
    show([](ScriptedDialog& dialog) {
        EXPECT_EQ(dialog.text(IDC_UNINSTALL_QUESTION), "Would you like to uninstall it?");
        dialog.clickLater(IDCANCEL);
    });
}

TEST_F(AskUninstall, SelectsAllOrNone) {
    EXPECT_EQ(show([](ScriptedDialog& dialog) {
                  dialog.click(IDC_SELECT_ALL);
                  EXPECT_EQ(dialog.ticked(), Names());
                  dialog.click(IDC_SELECT_ALL);
                  EXPECT_EQ(dialog.ticked().size(), 3u);
                  dialog.click(IDC_SELECT_ALL);
                  dialog.clickLater(IDYES);
              }),
              IDOK);
    EXPECT_EQ(ran(), Names());
}

TEST_F(AskUninstall, RunsAllOfATickedName) {
    EXPECT_EQ(show([](ScriptedDialog& dialog) {
                  dialog.versions.SetCheck(0, false);
                  dialog.versions.SetCheck(1, false);
                  dialog.clickLater(IDYES);
              }),
              IDOK);
    EXPECT_EQ(ran(), (Names{"b1.exe", "b2.exe"}));
}

TEST_F(AskUninstall, ObeysTheKeyboard) {
    // The list has the focus, so the blank unticks what the arrow keys stand on.
    show([](ScriptedDialog& dialog) {
        dialog.pressKey(VK_END);
        dialog.pressKey(VK_SPACE);
        dialog.pressKey(VK_UP);
        dialog.pressKey(VK_SPACE);
        dialog.clickLater(IDYES);
    });
    EXPECT_EQ(ran(), Names{"a.exe"});
    EXPECT_EQ(show([](ScriptedDialog& dialog) { dialog.pressKey(VK_ESCAPE); }), IDCANCEL);
    EXPECT_EQ(ran(), Names{"a.exe"});
}

}  // namespace
