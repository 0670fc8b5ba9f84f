#include "framework/button.h"

int CButton::GetCheck() const {
    return static_cast<int>(SendMessageA(m_hWnd, BM_GETCHECK, 0, 0));
}

void CButton::SetCheck(int check) {
    SendMessageA(m_hWnd, BM_SETCHECK, static_cast<WPARAM>(check), 0);
}
