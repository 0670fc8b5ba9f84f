#include "platform/files_win.h"

#include <memory>
#include <new>

#include "platform/handle_win.h"
#include "platform/system_library_win.h"

PathKind examinePath(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return PathKind::Inaccessible;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Directory : PathKind::File;
}

bool isListed(const std::string& path) {
    WIN32_FIND_DATAA found;
    return static_cast<bool>(FileSearch(FindFirstFileA(path.c_str(), &found)));
}

std::string runningProgramPath() {
    char path[1024] = {};
    // XP leaves a path that was cut without its terminator.
    GetModuleFileNameA(nullptr, path, sizeof path - 1);
    return path;
}

std::optional<std::string> readFileContent(const std::string& path) {
    const KernelHandle file(CreateFileA(path.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.get(), &size) ||
        size.QuadPart > static_cast<LONGLONG>(maximumFileSize)) {
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

DWORD copyOverFile(const std::string& source, const std::string& target) {
    // From read-only media the attribute comes along: such a copy could neither be replaced nor
    // remove itself.
    const auto makeWritable = [&target] {
        const DWORD attributes = GetFileAttributesA(target.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            SetFileAttributesA(target.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
        }
    };
    makeWritable();
    if (!CopyFileA(source.c_str(), target.c_str(), FALSE)) {
        return GetLastError();
    }
    makeWritable();
    return ERROR_SUCCESS;
}

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
