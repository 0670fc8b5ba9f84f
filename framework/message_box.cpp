#include "framework/message_box.h"

#include "framework/win_app.h"

int AfxMessageBox(const std::string& text, UINT type) {
    return MessageBoxA(GetActiveWindow(), text.c_str(), AfxGetApp()->m_pszAppName, type);
}
