#pragma once

#include <string>

#include "framework/dialog_win.h"

/// The program. One global object of a class derived from this one exists; the entry point calls
/// its InitInstance and, when that returns true, Run.
class CWinApp {
  public:
    /// `applicationName` titles message boxes; static, not owned.
    explicit CWinApp(const char* applicationName);
    virtual ~CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    /// False ends the program at once.
    virtual bool InitInstance();
    /// The message loop; without a main window it ends at once. Returns the exit code.
    int Run();

    const char* const m_pszAppName;
    /// The main window: a dialog while it shows, else null. Not owned.
    CWnd* m_pMainWnd = nullptr;
};

/// The one application object.
CWinApp* AfxGetApp();

/// A message box owned by the active dialog, titled with the application's name. `type` takes the
/// MB_ flags of winuser.h. Returns the button's id.
int AfxMessageBox(const std::string& text, UINT type = MB_OK | MB_ICONEXCLAMATION);
