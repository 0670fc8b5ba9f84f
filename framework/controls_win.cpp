#include "framework/controls_win.h"

namespace {

// The list view reads and writes texts through non-const pointers, but does not change ours.
char* messageText(const std::string& text) {
    return const_cast<char*>(text.c_str());
}

}  // namespace

void CListCtrl::InsertColumn(int column, const std::string& heading, int format, int width) {
    LVCOLUMNA description{};
    description.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    description.fmt = format;
    description.cx = width;
    description.pszText = messageText(heading);
    description.iSubItem = column;
    ListView_InsertColumn(m_hWnd, column, &description);
}

int CListCtrl::InsertItem(int item, const std::string& text) {
    LVITEMA description{};
    description.mask = LVIF_TEXT;
    description.iItem = item;
    description.pszText = messageText(text);
    return ListView_InsertItem(m_hWnd, &description);
}

void CListCtrl::SetItemText(int item, int column, const std::string& text) {
    ListView_SetItemText(m_hWnd, item, column, messageText(text));
}

std::string CListCtrl::GetItemText(int item, int column) const {
    char buffer[longestItemText + 1] = "";
    ListView_GetItemText(m_hWnd, item, column, buffer, sizeof buffer);
    return buffer;
}

LPARAM CListCtrl::GetItemData(int item) const {
    LVITEMA description{};
    description.mask = LVIF_PARAM;
    description.iItem = item;
    ListView_GetItem(m_hWnd, &description);
    return description.lParam;
}

void CListCtrl::SetItemData(int item, LPARAM data) {
    LVITEMA description{};
    description.mask = LVIF_PARAM;
    description.iItem = item;
    description.lParam = data;
    ListView_SetItem(m_hWnd, &description);
}
