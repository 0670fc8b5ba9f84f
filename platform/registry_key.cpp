#include "platform/registry_key.h"

bool isStringType(unsigned long type) {
    constexpr unsigned long string = 1;
    constexpr unsigned long expandableString = 2;
    return type == string || type == expandableString;
}

bool isTerminated(const char* data, std::size_t size) {
    return size == 0 || data[size - 1] == '\0';
}

std::string_view textOfData(const char* data, std::size_t size) {
    const std::string_view all(data, size);
    return all.substr(0, all.find('\0'));
}
