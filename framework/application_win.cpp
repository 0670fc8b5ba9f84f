#include "framework/application_win.h"

namespace {

constinit CWinApp* application = nullptr;

}  // namespace

CWinApp::CWinApp(const char* applicationName) : m_pszAppName(applicationName) {
    application = this;
}

bool CWinApp::InitInstance() {
    return true;
}

int CWinApp::Run() {
    if (m_pMainWnd == nullptr) {
        PostQuitMessage(0);
    }
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

CWinApp* AfxGetApp() {
    return application;
}

int AfxMessageBox(const std::string& text, UINT type) {
    return MessageBoxA(GetActiveWindow(), text.c_str(), AfxGetApp()->m_pszAppName, type);
}
