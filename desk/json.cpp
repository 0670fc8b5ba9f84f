#include "desk/json.h"

#include "desk/whole_file.h"

Json readJson(const std::string& file) {
    try {
        return Json::parse(readInput(file), nullptr, true, true);
    } catch (const Json::parse_error& error) {
        throw Refusal(inQuotes(file) + " is no JSON: " + reasonOf(error) + '.');
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
