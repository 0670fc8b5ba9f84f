// Message boxes as values.
#pragma once

#include <string>

/// Titles every message box but that of a program that could not be started.
inline constexpr char applicationName[] = "Tavlink Installation";

enum class MessageIcon { Warning, Error };
enum class MessageButtons { Ok, YesNo };
/// Kept: two boxes stand for themselves, all others belong to the dialog that shows.
enum class MessageOwner { ActiveDialog, None };

struct Message {
    std::string text;
    MessageIcon icon = MessageIcon::Warning;
    MessageButtons buttons = MessageButtons::Ok;
    MessageOwner owner = MessageOwner::ActiveDialog;
    const char* title = applicationName;  ///< static
};
