#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "framework/window.h"

/// A list view. Indices count from 0.
class CListCtrl : public CWnd {
  public:
    void InsertColumn(int column, const std::string& heading, int format, int width);
    /// Returns the index at which the item went in, -1 on failure.
    int InsertItem(int item, const std::string& text);
    void SetItemText(int item, int column, const std::string& text);
    /// Whole, however long.
    std::string GetItemText(int item, int column) const;
    int GetItemCount() const;
    LPARAM GetItemData(int item) const;
    void SetItemData(int item, LPARAM data);
    bool GetCheck(int item) const;
    void SetCheck(int item, bool check);
    /// LVIS_* bits (commctrl.h); those outside `mask` stay.
    void SetItemState(int item, UINT state, UINT mask);
    void SortItems(PFNLVCOMPARE compare, LPARAM argument);
};
