// Who may install, and on which Windows releases.
#pragma once

#include <optional>
#include <string>

#include "app/message.h"

struct OperatingSystemPolicy {
    /// False: the run ends. True: it goes on, provided a question in `message` is answered Yes.
    bool accepted = false;
    std::optional<Message> message;
};

/// `systemCode` (one of operating_system_code) and `name` as the identification gave them.
[[nodiscard]] OperatingSystemPolicy operatingSystemPolicy(int systemCode, const std::string& name);

[[nodiscard]] Message administratorRequiredMessage();
