// The baseline for the time to the launch: the one call of the shell, without the installer.
// Starts the program whose path is the command line.
#include <windows.h>

#include <shellapi.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR path, int) {
    SHELLEXECUTEINFOA execution{};
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_NOCLOSEPROCESS;
    execution.lpFile = path;
    execution.lpParameters =
        "-installer \"`productCode=1q`productName=Signal Library`bitness=64`\"";
    execution.lpDirectory = "";
    execution.nShow = SW_SHOWNORMAL;
    return ShellExecuteExA(&execution) ? 0 : 1;
}
