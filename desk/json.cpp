#include "desk/json.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "desk/refusal.h"
#include "desk/whole_file.h"

Json readJson(const std::string& file) {
    try {
        return Json::parse(readInput(file), nullptr, true, true);
    } catch (const Json::parse_error& error) {
        throw Refusal("\"" + file + "\" is no JSON: " + reasonOf(error) + '.');
    }
}

std::string reasonOf(const std::exception& error) {
    // "[json.exception.parse_error.101] parse error at line 1, column 2: ...", "[...] (/bits) ..."
    std::string reason = error.what();
    for (const std::string_view prefix : {"[json.exception.", "parse error at "}) {
        if (reason.starts_with(prefix)) {
            reason.erase(0, prefix.front() == '[' ? reason.find(' ') + 1 : prefix.size());
        }
    }
    return reason;
}

const Json& member(const Json& object, std::string_view name) {
    static const Json none;
    const auto found = object.find(name);
    return found == object.end() ? none : *found;
}

void requireMembers(const Json& value, const std::string& what,
                    std::initializer_list<std::string_view> names) {
    if (!value.is_object()) {
        throw Refusal(what + " is no object");
    }
    for (const auto& [name, ignored] : value.items()) {
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            throw Refusal("\"" + name + "\" is not known in " + what);
        }
    }
}
