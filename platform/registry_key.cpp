#include "platform/registry_key.h"

bool isStringType(unsigned long type) {
    return type == stringType || type == expandableStringType;
}

std::string_view textOfData(const char* data, std::size_t size) {
    const std::string_view all(data, size);
    return all.substr(0, all.find('\0'));
}

std::uint32_t readStringValue(const KeyReader& key, const char* name, char* buffer,
                              unsigned long& size, unsigned long* type) {
    const unsigned long capacity = size;
    size = 0;
    unsigned long dataType = 0;
    unsigned long dataSize = capacity;
    const std::uint32_t result = key.queryValue(name, dataType, buffer, dataSize);
    if (result != errorSuccess) {
        return result;
    }
    if (!isStringType(dataType)) {
        return errorInvalidData;
    }
    if (buffer != nullptr && dataSize == 0 && capacity != 0) {
        buffer[0] = '\0';
    } else if (buffer != nullptr && dataSize != 0 && buffer[dataSize - 1] != '\0') {
        return errorInvalidData;
    }
    size = dataSize;
    if (type != nullptr) {
        *type = dataType;
    }
    return errorSuccess;
}
