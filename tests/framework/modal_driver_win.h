#pragma once

#include <functional>
#include <utility>

#include "framework/dialog_win.h"

/// The dialog that is shown by driveModal, and what is done with it.
inline CDialog* drivenDialog = nullptr;
inline std::function<void(HWND dialog)> driveDialog;

inline void CALLBACK driveVisibleDialog(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND window = drivenDialog->m_hWnd;
    if (IsWindowVisible(window)) {
        KillTimer(nullptr, timer);
        driveDialog(window);
        PostMessageA(window, WM_CLOSE, 0, 0);
    }
}

/// Shows a modal dialog and calls `drive` from its message loop once it is visible. A dialog that
/// is still there after it is closed. Returns the dialog's result.
inline INT_PTR driveModal(CDialog& dialog, std::function<void(HWND dialog)> drive) {
    drivenDialog = &dialog;
    driveDialog = std::move(drive);
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, driveVisibleDialog);
    return dialog.DoModal();
}
