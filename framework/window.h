#pragma once

#include <windows.h>

#include <string>

/// A window handle with the operations that the dialogs use. Does not own the window: dialogs
/// end with their modal loop, controls with their dialog.
class CWnd {
  public:
    CWnd() = default;
    virtual ~CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    void SetWindowText(const std::string& text);
    void ShowWindow(int command);

    /// Null before the window exists. A dialog's is null again after its modal loop; a control's
    /// is good only within that loop.
    HWND m_hWnd = nullptr;
};
