#include "framework/window.h"

void CWnd::SetWindowText(const std::string& text) {
    ::SetWindowTextA(m_hWnd, text.c_str());
}

void CWnd::ShowWindow(int command) {
    ::ShowWindow(m_hWnd, command);
}
