// Keys and values as a registry holds them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// REG_SZ, REG_BINARY, REG_DWORD and REG_MULTI_SZ of winnt.h.
inline constexpr std::uint32_t registryTypeText = 1;
inline constexpr std::uint32_t registryTypeBinary = 3;
inline constexpr std::uint32_t registryTypeNumber = 4;
inline constexpr std::uint32_t registryTypeTexts = 7;

struct RegistryValue {
    std::string name;  ///< empty for the key's default value
    std::uint32_t type = 0;
    std::string data;  ///< bytes, terminator included; of string types in the ANSI code page
};

/// Paths of keys in the order in which Windows enumerates keys, letter case ignored: every key
/// stands directly in front of those below it.
struct KeyPathOrder {
    using is_transparent = void;
    [[nodiscard]] bool operator()(std::string_view left, std::string_view right) const;
};

/// A key's values in the order in which they were first set; found by name in any letter case.
class RegistryValues {
  public:
    /// In place of one of its name, or as the last one.
    void set(RegistryValue value);
    void remove(std::string_view name);
    /// Null where there is none.
    [[nodiscard]] const RegistryValue* find(std::string_view name) const;
    [[nodiscard]] const std::vector<RegistryValue>& all() const { return list; }

  private:
    std::vector<RegistryValue> list;
    std::map<std::string, std::size_t> positions;  ///< by name in lower case
};

/// Keys below HKEY_LOCAL_MACHINE by their path.
using RegistryKeys = std::map<std::string, RegistryValues, KeyPathOrder>;

/// Whether `path` is a key below the key `parent`.
[[nodiscard]] bool isBelow(std::string_view path, std::string_view parent);

/// A terminated text.
[[nodiscard]] RegistryValue registryText(std::string name, std::string text);
