// The documents that the desk reads and prints; docs/formats.md describes them.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "desk/refusal.h"

/// Members keep the order in which they were put in.
using Json = nlohmann::ordered_json;

/// A document, in which comments are allowed. Throws Refusal with line and column when the file
/// holds none.
[[nodiscard]] Json readJson(const std::string& file);

/// What an exception says, without the library's own prefix.
[[nodiscard]] std::string reasonOf(const std::exception& error);
