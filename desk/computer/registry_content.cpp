#include "desk/computer/registry_content.h"

#include <algorithm>
#include <utility>

#include "platform/ansi_text.h"

namespace {

/// The rank of a byte in the order of keys: the separator first, letters as capitals.
unsigned rank(char character) {
    if (character == '\\') {
        return 0;
    }
    const auto byte = static_cast<unsigned char>(character);
    const bool ascii = byte < 0x80;  // by far the most, and compared often
    const auto lower =
        ascii ? byte : static_cast<unsigned char>(lowerCase(std::string_view(&character, 1))[0]);
    return lower >= 'a' && lower <= 'z' ? lower - ('a' - 'A') : lower;
}

}  // namespace

bool KeyPathOrder::operator()(std::string_view left, std::string_view right) const {
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(),
        [](char one, char other) { return rank(one) < rank(other); });
}

bool isBelow(std::string_view path, std::string_view parent) {
    return path.size() > parent.size() + 1 && path[parent.size()] == '\\' &&
           equalIgnoringCase(path.substr(0, parent.size()), parent);
}

void RegistryValues::set(RegistryValue value) {
    const auto [position, added] = positions.try_emplace(lowerCase(value.name), list.size());
    if (added) {
        list.push_back(std::move(value));
    } else {
        list[position->second] = std::move(value);
    }
}

void RegistryValues::remove(std::string_view name) {
    const auto found = positions.find(lowerCase(name));
    if (found == positions.end()) {
        return;
    }
    const std::size_t removed = found->second;
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(removed));
    positions.erase(found);
    for (auto& [known, position] : positions) {
        position -= position > removed ? 1 : 0;
    }
}

const RegistryValue* RegistryValues::find(std::string_view name) const {
    const auto found = positions.find(lowerCase(name));
    return found == positions.end() ? nullptr : &list[found->second];
}

RegistryValue registryText(std::string name, std::string text) {
    return {std::move(name), registryTypeText, std::move(text) + '\0'};
}
