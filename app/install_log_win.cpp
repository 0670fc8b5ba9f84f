#include "app/install_log_win.h"

#include <windows.h>

#include <shlobj.h>

#include "app/install_log.h"
#include "platform/ansi_text.h"
#include "platform/handle_win.h"
#include "platform/system_library_win.h"

namespace {

std::string installLogFolder() {
    char documents[MAX_PATH] = "";
    return SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT,
                            documents) == S_OK
               ? withTrailingBackslash(documents) + "Halvick Test Equipment"
               : ".";
}

/// The file or folder itself, also where it leads elsewhere. Not shared for deletion: while it is
/// open, nothing else can take its place.
HANDLE openItself(const std::string& path, DWORD access, DWORD disposition, DWORD flags) {
    return CreateFileA(path.c_str(), access | FILE_READ_ATTRIBUTES,
                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                       flags | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

/// Empty before Vista. Where the question fails, none that a file or folder has.
std::string finalPath(HANDLE file) {
    using GetFinalPathNameByHandle = DWORD(WINAPI*)(HANDLE, char*, DWORD, DWORD);
    const auto getPath = procedureAddress<GetFinalPathNameByHandle>(
        GetModuleHandleA("kernel32.dll"), "GetFinalPathNameByHandleA");
    if (getPath == nullptr) {
        return "";
    }
    char path[2 * MAX_PATH] = "?";
    return getPath(file, path, sizeof path, 0) < sizeof path ? path : "?";
}

}  // namespace

void appendToInstallLog(const std::string& line) {
    const std::string path = installLogFolder();
    const KernelHandle folder(
        openItself(path, FILE_LIST_DIRECTORY, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    BY_HANDLE_FILE_INFORMATION folderFacts, fileFacts;
    // Looked at before the file is opened too: opening makes one that is missing.
    if (!GetFileInformationByHandle(folder.get(), &folderFacts) ||
        isReparsePoint(folderFacts.dwFileAttributes)) {
        return;
    }
    const KernelHandle log(openItself(path + '\\' + installLogFile, FILE_APPEND_DATA, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL));
    if (!GetFileInformationByHandle(folder.get(), &folderFacts) ||
        !GetFileInformationByHandle(log.get(), &fileFacts) ||
        !mayAppendToLog({folderFacts.dwFileAttributes, fileFacts.dwFileAttributes,
                         fileFacts.nNumberOfLinks, finalPath(folder.get()),
                         finalPath(log.get())})) {
        return;
    }
    const std::string text = line + "\r\n";
    DWORD written = 0;
    WriteFile(log.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}
