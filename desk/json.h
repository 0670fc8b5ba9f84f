// The documents that the desk reads and prints. Whoever makes or takes one apart includes
// <nlohmann/json.hpp> as well, which takes the compiler seconds.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

/// Members keep the order in which they were put in.
using Json = nlohmann::ordered_json;

/// A document, in which comments are allowed. Throws Refusal with line and column when the file
/// holds none.
[[nodiscard]] Json readJson(const std::string& file);
