#include <windows.h>

#include <cstdlib>

#include "app/command_line.h"
#include "app/install_app.h"
#include "app/show_message.h"

namespace {

PathKind examinePath(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return PathKind::Inaccessible;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Directory : PathKind::File;
}

}  // namespace

bool CInstallApp::ParseCommandLine(std::string& sourceDirectory, std::string& installDirectory) {
    CommandLine commandLine;
    const std::optional<Message> error =
        parseCommandLine({__argv, __argv + __argc}, examinePath, commandLine);
    sourceDirectory = commandLine.sourceDirectory;
    installDirectory = commandLine.installDirectory;
    if (error) {
        showMessage(*error);
    }
    return !error;
}
