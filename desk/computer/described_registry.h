// A registry that answers from a description: keys and values as a registry holds them.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ansi_text.h"
#include "platform/registry_key.h"

/// What stands under a key of a map; null where nothing does.
template <class Map, class Key>
[[nodiscard]] const typename Map::mapped_type* valueIn(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

struct RegistryValue {
    std::uint32_t type = 0;
    std::string data;  ///< bytes, terminator included; of string types in the ANSI code page
};

/// Paths of keys in the order in which Windows enumerates keys, letter case ignored: every key
/// stands directly in front of those below it. Names of values too, of which Windows promises no
/// order.
struct KeyPathOrder {
    using is_transparent = void;
    [[nodiscard]] bool operator()(std::string_view left, std::string_view right) const;
};

/// A key's values by their name, which is empty for the default value.
using RegistryValues = std::map<std::string, RegistryValue, KeyPathOrder>;

/// Keys below HKEY_LOCAL_MACHINE by their path.
using RegistryKeys = std::map<std::string, RegistryValues, KeyPathOrder>;

/// Whether `path` is a key below the key `parent`.
[[nodiscard]] bool isBelow(std::string_view path, std::string_view parent);

/// A terminated text.
[[nodiscard]] RegistryValue registryText(const std::string& text);

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
