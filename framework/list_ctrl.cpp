#include "framework/list_ctrl.h"

#include <vector>

namespace {

// The list view reads and writes texts through non-const pointers, but does not change ours.
char* messageText(const std::string& text) {
    return const_cast<char*>(text.c_str());
}

// State image indices of the check boxes (commctrl.h, INDEXTOSTATEIMAGEMASK).
constexpr UINT uncheckedImage = 1;
constexpr UINT checkedImage = 2;

}  // namespace

void CListCtrl::InsertColumn(int column, const std::string& heading, int format, int width) {
    LVCOLUMNA description{};
    description.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    description.fmt = format;
    description.cx = width;
    description.pszText = messageText(heading);
    description.iSubItem = column;
    SendMessageA(m_hWnd, LVM_INSERTCOLUMNA, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&description));
}

int CListCtrl::InsertItem(int item, const std::string& text) {
    LVITEMA description{};
    description.mask = LVIF_TEXT;
    description.iItem = item;
    description.pszText = messageText(text);
    return static_cast<int>(
        SendMessageA(m_hWnd, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&description)));
}

void CListCtrl::SetItemText(int item, int column, const std::string& text) {
    LVITEMA description{};
    description.iSubItem = column;
    description.pszText = messageText(text);
    SendMessageA(m_hWnd, LVM_SETITEMTEXTA, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&description));
}

std::string CListCtrl::GetItemText(int item, int column) const {
    std::vector<char> buffer(256);
    for (;;) {
        LVITEMA description{};
        description.iSubItem = column;
        description.pszText = buffer.data();
        description.cchTextMax = static_cast<int>(buffer.size());
        const auto length = static_cast<std::size_t>(
            SendMessageA(m_hWnd, LVM_GETITEMTEXTA, static_cast<WPARAM>(item),
                         reinterpret_cast<LPARAM>(&description)));
        // A text that fills the buffer may have been cut.
        if (length + 1 < buffer.size()) {
            return std::string(buffer.data(), length);
        }
        buffer.resize(buffer.size() * 2);
    }
}

int CListCtrl::GetItemCount() const {
    return static_cast<int>(SendMessageA(m_hWnd, LVM_GETITEMCOUNT, 0, 0));
}

LPARAM CListCtrl::GetItemData(int item) const {
    LVITEMA description{};
    description.mask = LVIF_PARAM;
    description.iItem = item;
    SendMessageA(m_hWnd, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&description));
    return description.lParam;
}

void CListCtrl::SetItemData(int item, LPARAM data) {
    LVITEMA description{};
    description.mask = LVIF_PARAM;
    description.iItem = item;
    description.lParam = data;
    SendMessageA(m_hWnd, LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&description));
}

bool CListCtrl::GetCheck(int item) const {
    const auto state = static_cast<UINT>(
        SendMessageA(m_hWnd, LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_STATEIMAGEMASK));
    return (state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(checkedImage);
}

void CListCtrl::SetCheck(int item, bool check) {
    SetItemState(item, INDEXTOSTATEIMAGEMASK(check ? checkedImage : uncheckedImage),
                 LVIS_STATEIMAGEMASK);
}

void CListCtrl::SetItemState(int item, UINT state, UINT mask) {
    LVITEMA description{};
    description.stateMask = mask;
    description.state = state;
    SendMessageA(m_hWnd, LVM_SETITEMSTATE, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&description));
}

void CListCtrl::SortItems(PFNLVCOMPARE compare, LPARAM argument) {
    SendMessageA(m_hWnd, LVM_SORTITEMS, static_cast<WPARAM>(argument),
                 reinterpret_cast<LPARAM>(compare));
}
