#include "framework/dialog_win.h"

#include <utility>

INT_PTR CDialog::DoModal() {
    const HINSTANCE module = GetModuleHandleA(nullptr);
    const HWND owner = parent != nullptr ? parent->m_hWnd : nullptr;
    const auto argument = reinterpret_cast<LPARAM>(this);
    const INT_PTR result =
        dialogTemplate != nullptr
            ? DialogBoxIndirectParamA(module, dialogTemplate, owner, DialogProcedure, argument)
            : DialogBoxParamA(module, MAKEINTRESOURCEA(resourceId), owner, DialogProcedure,
                              argument);
    m_hWnd = nullptr;
    return result;
}

LRESULT CDialog::Default() {
    passedOn = true;
    return 0;
}

INT_PTR CALLBACK CDialog::DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        auto* dialog = reinterpret_cast<CDialog*>(lParam);
        dialog->m_hWnd = window;
        return dialog->OnInitDialog() ? TRUE : FALSE;
    }
    // A few messages come before WM_INITDIALOG; nobody waits for them.
    auto* dialog = reinterpret_cast<CDialog*>(GetWindowLongPtrA(window, DWLP_USER));
    return dialog != nullptr ? dialog->HandleMessage(message, wParam, lParam) : FALSE;
}

INT_PTR CDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const MessageMap map = GetMessageMap();
    if (message == WM_COMMAND) {
        // The dialog manager sends these for Enter, Escape and the close box too.
        static constexpr CommandEntry ownCommands[] = {onClicked<&CDialog::OnOK>(IDOK),
                                                       onClicked<&CDialog::OnCancel>(IDCANCEL)};
        for (const auto commands : {map.commands, std::span<const CommandEntry>(ownCommands)}) {
            for (const CommandEntry& entry : commands) {
                if (entry.id == LOWORD(wParam) && entry.notification == HIWORD(wParam)) {
                    entry.handler(*this);
                    return TRUE;
                }
            }
        }
    }
    for (const MessageEntry& entry : map.messages) {
        if (entry.message == message) {
            // A handler that waits, as help does, may be given further messages meanwhile.
            const bool outerPassedOn = std::exchange(passedOn, false);
            const LRESULT result = entry.handler(*this, wParam, lParam);
            if (std::exchange(passedOn, outerPassedOn)) {
                return FALSE;
            }
            // A dialog procedure returns a few results directly, the others through the window.
            if (message == WM_QUERYDRAGICON) {
                return result;
            }
            SetWindowLongPtrA(m_hWnd, DWLP_MSGRESULT, result);
            return TRUE;
        }
    }
    return FALSE;
}
