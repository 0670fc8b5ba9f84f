#pragma once

#include <string>

enum class MessageIcon { Warning, Error };
enum class MessageButtons { Ok, YesNo };

/// A message box to be shown.
struct Message {
    std::string text;
    MessageIcon icon = MessageIcon::Warning;
    MessageButtons buttons = MessageButtons::Ok;
};
