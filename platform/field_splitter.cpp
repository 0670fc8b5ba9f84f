#include "platform/field_splitter.h"

#include <algorithm>

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
