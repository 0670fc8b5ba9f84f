// Who may install, and on which Windows releases.
#pragma once

#include <optional>

#include "platform/message.h"

[[nodiscard]] Message notAdministratorMessage();

struct EnvironmentPolicy {
    /// False: the run ends. True: it goes on, provided a question in `message` is answered Yes.
    bool accepted = false;
    std::optional<Message> message;
};

/// `systemCode` (one of operating_system_code) and `name` as the identification gave them.
[[nodiscard]] EnvironmentPolicy environmentPolicy(int systemCode, const std::string& name);
