#include "platform/version_number.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/format_text.h"

namespace {

constexpr char allowedCharacters[] = ".0123456789";
constexpr std::size_t fieldCount = 4;
constexpr char rule[] = " - version must contain 4 non-empty fields delimted by '.'";

/// Too many digits wrap, as atoi of the platform's C library does.
int decimalNumber(std::string_view digits) {
    std::uint32_t number = 0;
    for (const char digit : digits) {
        number = number * 10 + static_cast<std::uint32_t>(digit - '0');
    }
    return static_cast<int>(number);
}

/// What breaks the rule; empty when nothing does. The misspellings are kept: these texts are
/// searched for as they have always been.
std::string splitError(std::string_view version, std::vector<std::string>& fields) {
    if (version.empty()) {
        return "No version specified.";
    }
    const std::size_t illegal = version.find_first_not_of(allowedCharacters);
    if (illegal != std::string_view::npos) {
        return formatText("Illegal character in version - '%c', allowable characers \"%s\"",
                          version[illegal], allowedCharacters);
    }
    splitFields(version, fields, '.');
    if (fields.size() != fieldCount) {
        return formatText("Encountered %d version fields%s", static_cast<int>(fields.size()), rule);
    }
    for (std::size_t field = 0; field < fieldCount; ++field) {
        if (fields[field].empty()) {
            return formatText("Version field %d is empty%s", static_cast<int>(field), rule);
        }
    }
    return {};
}

}  // namespace

void splitFields(std::string_view text, std::vector<std::string>& fields, char delimiter) {
    constexpr char escape = '`';
    fields.clear();
    fields.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), delimiter)) + 1);
    std::string field;
    for (std::size_t offset = 0; offset < text.size(); ++offset) {
        const char character = text[offset];
        if (character == escape && offset + 1 < text.size() &&
            (delimiter != escape || text[offset + 1] == escape)) {
            ++offset;
            if (text[offset] != delimiter) {
                field += escape;
            }
            field += text[offset];
        } else if (character == delimiter) {
            fields.push_back(field);
            field.clear();
        } else {
            field += character;
        }
    }
    if (!field.empty()) {
        fields.push_back(field);
    }
}

bool splitVersion(std::string_view version, std::vector<std::string>& fields, std::string* error) {
    fields.clear();
    std::string message = splitError(version, fields);
    const bool valid = message.empty();
    if (error != nullptr) {
        *error = std::move(message);
    }
    return valid;
}

bool parseVersion(std::string_view version, std::vector<int>& numbers, std::string* error) {
    numbers.clear();
    std::vector<std::string> fields;
    if (!splitVersion(version, fields, error)) {
        return false;
    }
    for (const std::string& field : fields) {
        numbers.push_back(decimalNumber(field));
    }
    return true;
}
