#include "desk/json.h"

#include <nlohmann/json.hpp>

#include "desk/refusal.h"
#include "desk/whole_file.h"

Json readJson(const std::string& file) {
    try {
        return Json::parse(readInput(file), nullptr, true, true);
    } catch (const Json::parse_error& error) {
        // "[json.exception.parse_error.101] parse error at line 1, column 2: ..."
        const std::string_view reason = error.what();
        constexpr std::string_view prefix = "parse error at ";
        const std::size_t place = reason.find(prefix);
        throw Refusal("\"" + file + "\" is no JSON: " +
                      std::string(place == std::string_view::npos
                                      ? reason
                                      : reason.substr(place + prefix.size())) +
                      '.');
    }
}
