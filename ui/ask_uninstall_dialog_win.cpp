#include "ui/ask_uninstall_dialog_win.h"

#include "platform/ansi_text.h"
#include "platform/handle_win.h"
#include "ui/ask_uninstall_dialog.h"
#include "ui/resource.h"

namespace {

// Column 0 carries the check box alone.
constexpr int nameColumn = 1;

struct SortedItem {
    LPARAM data;
    std::string lowerCaseName;
};

int CALLBACK compareItems(LPARAM left, LPARAM right, LPARAM order) {
    return compareLowerCaseNames(reinterpret_cast<const SortedItem*>(left)->lowerCaseName,
                                 reinterpret_cast<const SortedItem*>(right)->lowerCaseName,
                                 static_cast<long>(order));
}

}  // namespace

CAskUninstallDlg::CAskUninstallDlg(const std::vector<InstalledProduct>& products,
                                   const Remove& remove)
    : CDialog(IDD_ASK_UNINSTALL), products(&products), remove(&remove) {}

bool CAskUninstallDlg::OnInitDialog() {
    BindControl(list, IDC_VERSION_LIST);
    BindControl(selectAll, IDC_SELECT_ALL);
    const UninstallPromptTexts texts = uninstallPromptTexts(products->size());
    SetDlgItemTextA(m_hWnd, IDC_VERSIONS_FOUND, texts.found);
    SetDlgItemTextA(m_hWnd, IDC_UNINSTALL_QUESTION, texts.question);
    FillList();
    selectAll.SetCheck(BST_CHECKED);
    SortList();
    // The blank unticks the first row at once, without an arrow key before it.
    list.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    return true;
}

MessageMap CAskUninstallDlg::GetMessageMap() const {
    static constexpr CommandEntry commands[] = {
        onClicked<&CAskUninstallDlg::OnCancel>(IDNO),
        onClicked<&CAskUninstallDlg::OnConfirm>(IDYES),
        onClicked<&CAskUninstallDlg::OnSelectAll>(IDC_SELECT_ALL),
    };
    return {{}, commands};
}

// A message box that a removal brings up, and that the prompt does not own, leaves the prompt's
// buttons and keys working.
void CAskUninstallDlg::OnOK() {
    if (!confirmed) {
        CDialog::OnOK();
    }
}

void CAskUninstallDlg::OnCancel() {
    if (!confirmed) {
        CDialog::OnCancel();
    }
}

void CAskUninstallDlg::OnConfirm() {
    if (confirmed) {
        return;
    }
    confirmed = true;
    // Windows would put a frozen copy in the place of a window that is not looked after, and take
    // clicks for it.
    DisableProcessWindowsGhosting();
    for (int item = 0; item < list.GetItemCount(); ++item) {
        if (list.GetCheck(item)) {
            (*remove)(list.GetItemText(item, nameColumn));
        }
    }
    EndDialog(IDOK);
}

void CAskUninstallDlg::OnSelectAll() {
    const bool check = selectAll.GetCheck() == BST_CHECKED;
    for (int item = 0; item < list.GetItemCount(); ++item) {
        list.SetCheck(item, check);
    }
}

void CAskUninstallDlg::FillList() {
    // Kept: the window style's bits go into the extended style too, where they stand for grid
    // lines, double buffering and the like; the look of the list comes from them.
    const LONG style = GetWindowLongA(list.m_hWnd, GWL_STYLE);
    SendMessageA(list.m_hWnd, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style | LVS_EX_CHECKBOXES);
    const ScreenDeviceContext screen(GetDC(nullptr));
    const ListColumnWidths widths = listColumnWidths(GetDeviceCaps(screen.get(), LOGPIXELSX));
    list.InsertColumn(0, "", LVCFMT_LEFT, widths.tick);
    list.InsertColumn(nameColumn, "", LVCFMT_LEFT, widths.name);
    for (const InstalledProduct& product : *products) {
        const int item = list.InsertItem(list.GetItemCount(), "");
        list.SetItemText(item, nameColumn, product.displayName);
        list.SetCheck(item, true);
    }
}

void CAskUninstallDlg::SortList() {
    const int count = list.GetItemCount();
    std::vector<SortedItem> items(static_cast<std::size_t>(count));
    for (int item = 0; item < count; ++item) {
        SortedItem& sorted = items[static_cast<std::size_t>(item)];
        sorted = {list.GetItemData(item), lowerCase(list.GetItemText(item, nameColumn))};
        list.SetItemData(item, reinterpret_cast<LPARAM>(&sorted));
    }
    list.SortItems(compareItems, ascendingOrder);
    for (int item = 0; item < count; ++item) {
        list.SetItemData(item, reinterpret_cast<const SortedItem*>(list.GetItemData(item))->data);
    }
}
