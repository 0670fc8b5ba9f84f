// The documents that the desk reads and prints; docs/formats.md describes them. Whoever makes or
// takes one apart includes <nlohmann/json.hpp> as well, which takes the compiler seconds.
#pragma once

#include <initializer_list>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

/// Members keep the order in which they were put in.
using Json = nlohmann::ordered_json;

/// A document, in which comments are allowed. Throws Refusal with line and column when the file
/// holds none.
[[nodiscard]] Json readJson(const std::string& file);

/// What an exception says, without the library's own prefix.
[[nodiscard]] std::string reasonOf(const std::exception& error);

/// The member of an object; null where there is none.
[[nodiscard]] const Json& member(const Json& object, std::string_view name);

/// Throws Refusal unless `value` is an object whose members all have one of these names.
void requireMembers(const Json& value, const std::string& what,
                    std::initializer_list<std::string_view> names);
