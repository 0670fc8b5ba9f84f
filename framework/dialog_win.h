#pragma once

#include <string>

#include "framework/message_map_win.h"

/// A window handle with the operations that the dialogs use. Does not own the window: dialogs
/// end with their modal loop, controls with their dialog.
class CWnd {
  public:
    virtual ~CWnd() = default;
    CWnd& operator=(CWnd&&) = delete;  // nor is it copied

    void SetWindowText(const std::string& text) { ::SetWindowTextA(m_hWnd, text.c_str()); }
    /// SW_ commands (winuser.h).
    void ShowWindow(int command) { ::ShowWindow(m_hWnd, command); }

    /// Null before the window exists. A dialog's is null again after its modal loop; a control's
    /// is good only within that loop.
    HWND m_hWnd = nullptr;
};

/// A modal dialog.
class CDialog : public CWnd {
  public:
    /// From a dialog resource of the program. `parent` may be null.
    explicit CDialog(UINT resourceId, CWnd* parent = nullptr)
        : resourceId(resourceId), parent(parent) {}
    /// From a template in memory, which must outlive DoModal.
    explicit CDialog(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr)
        : dialogTemplate(dialogTemplate), parent(parent) {}

    /// Shows the dialog until EndDialog; returns the result given there, -1 when the dialog could
    /// not be created.
    [[nodiscard]] INT_PTR DoModal();

  protected:
    /// Return true to let the dialog manager set the initial focus.
    virtual bool OnInitDialog() { return true; }
    /// End the dialog with IDOK, IDCANCEL.
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }
    /// Messages and commands that are handled here; anything else is left to the dialog manager.
    [[nodiscard]] virtual MessageMap GetMessageMap() const { return {}; }

    void EndDialog(INT_PTR result) { ::EndDialog(m_hWnd, result); }
    /// Gives `control` the handle of the child window with this id. In OnInitDialog.
    void BindControl(CWnd& control, int id) { control.m_hWnd = GetDlgItem(m_hWnd, id); }
    /// Within a message handler: the message goes on to the dialog manager as if it had no
    /// handler. What the handler returns is then not looked at.
    LRESULT Default();

  private:
    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
    INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    UINT resourceId = 0;
    const DLGTEMPLATE* dialogTemplate = nullptr;
    CWnd* parent = nullptr;
    bool passedOn = false;
};
