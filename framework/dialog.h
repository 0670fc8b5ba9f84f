#pragma once

#include <windows.h>

#include "framework/message_map.h"
#include "framework/window.h"

/// A modal dialog.
class CDialog : public CWnd {
  public:
    /// From a dialog resource of the program. `parent` may be null.
    explicit CDialog(UINT resourceId, CWnd* parent = nullptr);
    /// From a template in memory, which must outlive DoModal.
    explicit CDialog(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);

    /// Shows the dialog until EndDialog; returns the result given there, -1 when the dialog could
    /// not be created.
    INT_PTR DoModal();

  protected:
    /// Return true to let the dialog manager set the initial focus.
    virtual bool OnInitDialog();
    /// End the dialog with IDOK, IDCANCEL.
    virtual void OnOK();
    virtual void OnCancel();
    /// Messages and commands that are handled here; anything else is left to the dialog manager.
    virtual MessageMap GetMessageMap() const;

    void EndDialog(INT_PTR result);
    /// Gives `control` the handle of the child window with this id. In OnInitDialog.
    void BindControl(CWnd& control, int id);
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
