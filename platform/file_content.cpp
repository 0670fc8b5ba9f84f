#include "platform/file_content.h"

#include <windows.h>

#include "platform/kernel_handle.h"

namespace {

/// Far above any file that the program reads; one that is larger is not what its name says.
constexpr LONGLONG maximumSize = 0x10000000;

}  // namespace

std::optional<std::string> readFileContent(const std::string& path) {
    const KernelHandle file(CreateFileA(path.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart > maximumSize) {
        return std::nullopt;
    }
    std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr) ||
        read != content.size()) {
        return std::nullopt;
    }
    return content;
}
