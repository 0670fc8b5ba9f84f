#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/operating_system.h"

/// Asks Windows. The extended group is filled only when the first query calls for it.
[[nodiscard]] OperatingSystemFacts queryOperatingSystem();

/// The code alone; see operating_system_code for the negative ones.
[[nodiscard]] int operatingSystemCode();

/// The naming form: sets `platformId` (0 until the query has answered) and, with `wantName`,
/// fills `buffer` of `size` bytes as deliverOperatingSystemName does.
[[nodiscard]] int operatingSystemName(std::uint32_t& platformId, char* buffer, std::size_t size,
                                      bool wantName);

/// As above with the name wanted and the platform id dropped.
[[nodiscard]] int operatingSystemName(char* buffer, std::size_t size);

/// True when this 32-bit process runs on 64-bit Windows; false where the platform cannot tell.
[[nodiscard]] bool isWow64();
