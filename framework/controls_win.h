// Controls of a dialog, over the macros of windowsx.h and commctrl.h.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include "framework/dialog_win.h"

class CButton : public CWnd {
  public:
    /// BST_CHECKED (1) or BST_UNCHECKED (0).
    [[nodiscard]] int GetCheck() const { return Button_GetCheck(m_hWnd); }
    void SetCheck(int check) { Button_SetCheck(m_hWnd, check); }
};

/// A list view. Indices count from 0.
class CListCtrl : public CWnd {
  public:
    static constexpr int longestItemText = 1023;

    /// `format` is one of LVCFMT_, `width` in pixels.
    void InsertColumn(int column, const std::string& heading, int format, int width);
    /// Returns the index at which the item went in, -1 on failure.
    int InsertItem(int item, const std::string& text);
    void SetItemText(int item, int column, const std::string& text);
    /// At most longestItemText bytes of it.
    [[nodiscard]] std::string GetItemText(int item, int column) const;
    [[nodiscard]] int GetItemCount() const { return ListView_GetItemCount(m_hWnd); }
    [[nodiscard]] LPARAM GetItemData(int item) const;
    void SetItemData(int item, LPARAM data);
    [[nodiscard]] bool GetCheck(int item) const {
        return ListView_GetCheckState(m_hWnd, static_cast<UINT>(item)) == 1;
    }
    void SetCheck(int item, bool check) { ListView_SetCheckState(m_hWnd, item, check); }
    /// LVIS_ bits; those outside `mask` stay.
    void SetItemState(int item, UINT state, UINT mask) {
        ListView_SetItemState(m_hWnd, item, state, mask);
    }
    /// `order` is handed to `compare`.
    void SortItems(PFNLVCOMPARE compare, LPARAM order) {
        ListView_SortItems(m_hWnd, compare, order);
    }
};
