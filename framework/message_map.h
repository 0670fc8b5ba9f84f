// Message maps: ordinary tables from what a window receives to the member function that handles it.
#pragma once

#include <windows.h>

#include <span>

class CDialog;

using MessageHandler = LRESULT (CDialog::*)(WPARAM, LPARAM);
using CommandHandler = void (CDialog::*)();

struct MessageEntry {
    UINT message;
    MessageHandler handler;
};

/// `notification` is the control's notification code, for example BN_CLICKED.
struct CommandEntry {
    UINT id;
    UINT notification;
    CommandHandler handler;
};

/// The tables outlive the map; usually they are static.
struct MessageMap {
    std::span<const MessageEntry> messages;
    std::span<const CommandEntry> commands;
};

template <class Dialog>
constexpr MessageEntry onMessage(UINT message, LRESULT (Dialog::*handler)(WPARAM, LPARAM)) {
    return {message, static_cast<MessageHandler>(handler)};
}

template <class Dialog>
constexpr CommandEntry onClicked(UINT id, void (Dialog::*handler)()) {
    return {id, BN_CLICKED, static_cast<CommandHandler>(handler)};
}
