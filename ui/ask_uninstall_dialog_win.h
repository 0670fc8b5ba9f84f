#pragma once

#include <functional>

#include "framework/controls_win.h"
#include "installed/installed_product.h"

/// Lists the installed versions, all ticked, and has those that stay ticked removed. The result of
/// DoModal says nothing of how that went.
class CAskUninstallDlg : public CDialog {
  public:
    /// Removes the versions of this name.
    using Remove = std::function<void(const std::string& tickedName)>;

    /// Both outlive the dialog. Once the user has confirmed, `remove` is called for each item that
    /// is ticked when its turn comes, in the order of the list, before the dialog ends.
    CAskUninstallDlg(const std::vector<InstalledProduct>& products, const Remove& remove);

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    [[nodiscard]] MessageMap GetMessageMap() const override;

  private:
    void OnConfirm();
    void OnSelectAll();

    void FillList();
    void SortList();

    const std::vector<InstalledProduct>* products;
    const Remove* remove;
    bool confirmed = false;  ///< the answer stands, and none after it is taken
    CListCtrl list;
    CButton selectAll;
};
