#pragma once

#include "platform/operating_system.h"

/// Asks Windows. The extended group is filled only when the first query calls for it.
[[nodiscard]] OperatingSystemFacts queryOperatingSystem();

/// True when this 32-bit process runs on 64-bit Windows; false where the platform cannot tell.
[[nodiscard]] bool isWow64();
