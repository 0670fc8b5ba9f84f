#include <windows.h>

#include "framework/application.h"

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

int AfxMessageBox(const std::string& text, unsigned type) {
    return MessageBoxA(GetActiveWindow(), text.c_str(), AfxGetApp()->m_pszAppName, type);
}
