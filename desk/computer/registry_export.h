// What regedit exports: its text format, from "REGEDIT4" and from "Version 5.00".
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

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

/// Whether the bytes are the beginning of such an export, in any of its encodings.
[[nodiscard]] bool isRegistryExport(std::string_view content);

/// Reads an export of any content into `keys`, on top of what is there; keys of other roots are
/// passed over. `problems` gets a line for each line that is not understood, at most twenty.
void readRegistryExport(std::string_view content, RegistryKeys& keys,
                        std::vector<std::string>& problems);
