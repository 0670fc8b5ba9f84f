// Message maps: ordinary tables from what a window receives to the member function that handles it.
// They hold plain functions, since a pointer to a member of a derived dialog is no constant once it
// is converted, and the tables would be filled at run time.
#pragma once

#include <windows.h>

#include <span>

class CDialog;

struct MessageEntry {
    UINT message;
    LRESULT (*handler)(CDialog&, WPARAM, LPARAM);
};

/// `notification` is the control's notification code, for example BN_CLICKED.
struct CommandEntry {
    UINT id;
    UINT notification;
    void (*handler)(CDialog&);
};

/// The tables outlive the map; usually they are static.
struct MessageMap {
    std::span<const MessageEntry> messages;
    std::span<const CommandEntry> commands;
};

/// The dialog as the class that the member function belongs to.
template <class Dialog, class Result, class... Arguments>
Dialog& handlingDialog(CDialog& dialog, Result (Dialog::*)(Arguments...)) {
    return static_cast<Dialog&>(dialog);
}

/// onMessage<&CMyDialog::OnPaint>(WM_PAINT)
template <auto member>
constexpr MessageEntry onMessage(UINT message) {
    return {message, [](CDialog& dialog, WPARAM wParam, LPARAM lParam) -> LRESULT {
                return (handlingDialog(dialog, member).*member)(wParam, lParam);
            }};
}

/// onClicked<&CMyDialog::OnHelp>(IDC_HELP_BUTTON)
template <auto member>
constexpr CommandEntry onClicked(UINT id) {
    return {id, BN_CLICKED, [](CDialog& dialog) { (handlingDialog(dialog, member).*member)(); }};
}
