#pragma once

#include <string>

class CWnd;

/// The program. One global object of a class derived from this one exists; the entry point calls
/// its InitInstance and, when that returns true, Run.
class CWinApp {
  public:
    /// `applicationName` titles message boxes; static, not owned.
    explicit CWinApp(const char* applicationName) : m_pszAppName(applicationName) {
        application = this;
    }
    virtual ~CWinApp() = default;
    CWinApp& operator=(CWinApp&&) = delete;  // nor is it copied

    /// False ends the program at once.
    virtual bool InitInstance() { return true; }
    /// The message loop; without a main window it ends at once. Returns the exit code.
    int Run();

    const char* const m_pszAppName;
    /// The main window: a dialog while it shows, else null. Not owned.
    CWnd* m_pMainWnd = nullptr;

  private:
    friend CWinApp* AfxGetApp();
    static inline constinit CWinApp* application = nullptr;
};

/// The one application object.
inline CWinApp* AfxGetApp() {
    return CWinApp::application;
}

/// A message box owned by the active dialog, titled with the application's name. `type` takes the
/// MB_ flags of winuser.h; without it, MB_OK with MB_ICONEXCLAMATION. Returns the button's id.
int AfxMessageBox(const std::string& text, unsigned type = 0x30);
