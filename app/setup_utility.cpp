#include "app/setup_utility.h"

#include <windows.h>

#include "app/media_files.h"
#include "platform/format_text.h"

bool locateSetupUtility(const std::string& sourceDirectory, const char* applicationName,
                        std::string& path) {
    path = formatPath("%s%s", sourceDirectory.c_str(), setupUtilityFile);
    if (GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) {
        return true;
    }
    const std::string text =
        formatText("Failed to locate program installation utility: \"%s\"", path.c_str());
    MessageBoxA(nullptr, text.c_str(), applicationName, MB_OK | MB_ICONERROR);
    return false;
}
