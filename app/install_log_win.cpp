#include "app/install_log_win.h"

#include <windows.h>

#include <shlobj.h>

#include "platform/format_text.h"
#include "platform/handle_win.h"

namespace {

std::string installLogPath() {
    char documents[MAX_PATH] = "";
    return SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT,
                            documents) == S_OK
               ? formatCut("%s\\Halvick Test Equipment\\InstallLog.txt", documents)
               : "InstallLog.txt";
}

}  // namespace

void appendToInstallLog(const std::string& line) {
    const KernelHandle log(CreateFileA(installLogPath().c_str(), FILE_APPEND_DATA,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    if (log) {
        const std::string text = line + "\r\n";
        DWORD written = 0;
        WriteFile(log.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }
}
