// The documents that the desk reads and prints. Whoever makes or takes one apart includes
// <nlohmann/json.hpp> as well, which takes the compiler seconds.
#pragma once

#include <nlohmann/json_fwd.hpp>

/// Members keep the order in which they were put in.
using Json = nlohmann::ordered_json;
