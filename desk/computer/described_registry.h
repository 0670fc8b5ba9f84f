// A registry that answers from a description.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "desk/computer/registry_content.h"
#include "platform/registry_key.h"

/// Where reading a key fails, and with which Windows error code; 0: nowhere.
struct KeyFailures {
    std::uint32_t open = 0;
    std::uint32_t count = 0;
    std::uint32_t enumerate = 0;  ///< of subkeys and values
    std::uint32_t fromIndex = 0;  ///< of the first that fails to be enumerated
};

struct DescribedRegistry {
    /// What a 32-bit program sees of HKEY_LOCAL_MACHINE.
    RegistryKeys keys;
    /// By the key's path.
    std::map<std::string, KeyFailures, KeyPathOrder> failures;
    std::uint32_t lastError = 0;  ///< the thread's, whatever the calls return
};

/// `registry` outlives the reader and does not change meanwhile.
[[nodiscard]] std::unique_ptr<KeyReader> describedLocalMachine(const DescribedRegistry& registry);
