#include "platform/file_version_win.h"

#include <memory>
#include <new>

#include "platform/file_version.h"
#include "platform/system_library_win.h"

bool fileVersionText(const std::string& path, std::string& text) {
    // Looked up rather than imported: imports are resolved before the library search is
    // restricted, in the installer's own folder first. Once: an index reads thousands of files.
    using GetInfoSize = DWORD(WINAPI*)(const char*, DWORD*);
    using GetInfo = BOOL(WINAPI*)(const char*, DWORD, DWORD, void*);
    using QueryValue = BOOL(WINAPI*)(const void*, const char*, void**, UINT*);
    text.clear();
    static const HMODULE library = loadSystemLibrary("version.dll");
    static const auto getInfoSize =
        procedureAddress<GetInfoSize>(library, "GetFileVersionInfoSizeA");
    static const auto getInfo = procedureAddress<GetInfo>(library, "GetFileVersionInfoA");
    static const auto queryValue = procedureAddress<QueryValue>(library, "VerQueryValueA");
    if (getInfoSize == nullptr || getInfo == nullptr || queryValue == nullptr) {
        return false;
    }
    DWORD ignored = 0;
    const DWORD size = getInfoSize(path.c_str(), &ignored);
    if (size == 0) {
        return false;
    }
    // Zeroed: a block that could not be read holds no value.
    const std::unique_ptr<char[]> block(new (std::nothrow) char[size]());
    if (block == nullptr) {
        return true;
    }
    getInfo(path.c_str(), 0, size, block.get());
    void* value = nullptr;
    UINT length = 0;
    if (queryValue(block.get(), "\\StringFileInfo\\040904b0\\FileVersion", &value, &length)) {
        text = versionResourceText({block.get(), size}, static_cast<const char*>(value), length);
    }
    return true;
}
