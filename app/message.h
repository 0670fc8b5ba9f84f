// Message boxes as values, and the texts of those that the install sequence shows.
#pragma once

#include <string>
#include <string_view>

/// Titles every message box of the run's own.
inline constexpr char applicationName[] = "Tavlink Installation";

enum class MessageIcon { Warning, Error };
enum class MessageButtons { Ok, YesNo };

/// A message box to be shown.
struct Message {
    std::string text;
    MessageIcon icon = MessageIcon::Warning;
    MessageButtons buttons = MessageButtons::Ok;
};

/// The title of the "Install Product" dialog, at most 260 characters.
[[nodiscard]] std::string installTitle(const std::string& productName,
                                       const std::string& buildVersion);

[[nodiscard]] Message driversFailedMessage(const std::string& productName,
                                           const std::string& error);

/// For a demonstration of a product that has none: the stamp and the catalogue disagree.
[[nodiscard]] Message invalidInstallerMessage(std::string_view productCode);

/// `setupPath` is where "Setup.Exe" should be.
[[nodiscard]] Message setupMissingMessage(const std::string& setupPath);
