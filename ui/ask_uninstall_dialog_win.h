#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/controls_win.h"
#include "framework/dialog_win.h"
#include "installed/installed_product.h"

/// Lists the installed versions, all ticked, and runs the uninstallers of those that stay ticked,
/// one after the other. The result of DoModal says nothing of how that went.
class CAskUninstallDlg : public CDialog {
  public:
    /// `remove` is called with the names that are still ticked when the user confirms, in the order
    /// of the list. Both outlive the dialog.
    CAskUninstallDlg(
        const std::vector<InstalledProduct>& products,
        const std::function<void(const std::vector<std::string>& tickedNames)>& remove);

  protected:
    bool OnInitDialog() override;
    [[nodiscard]] MessageMap GetMessageMap() const override;

  private:
    void OnSkip();
    /// Pumps no messages while an uninstaller runs.
    void OnConfirm();
    void OnSelectAll();

    void FillList();
    void SortList();

    const std::vector<InstalledProduct>* products;
    const std::function<void(const std::vector<std::string>&)>* remove;
    CListCtrl list;
    CButton selectAll;
};
