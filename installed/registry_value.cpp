#include "installed/registry_value.h"

#include "installed/registry_text.h"

LSTATUS readStringValue(HKEY key, const char* name, char* buffer, DWORD& size) {
    const DWORD capacity = size;
    size = 0;
    DWORD type = REG_NONE;
    DWORD dataSize = capacity;
    const LSTATUS result =
        RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &dataSize);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    if (!isStringType(type)) {
        return ERROR_INVALID_DATA;
    }
    if (buffer != nullptr) {
        if (dataSize == 0 && capacity != 0) {
            buffer[0] = '\0';
        }
        if (!isTerminated(buffer, dataSize)) {
            return ERROR_INVALID_DATA;
        }
    }
    size = dataSize;
    return ERROR_SUCCESS;
}
