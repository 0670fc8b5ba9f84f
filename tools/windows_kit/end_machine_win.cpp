// Ends a virtual machine: writes what the system holds back for the current folder's volume, then
// restarts without a question to any program, which the machine's monitor takes for its end. Not
// every system can switch its power off.
#include <windows.h>

extern "C" {
LONG NTAPI RtlAdjustPrivilege(ULONG privilege, BOOLEAN enable, BOOLEAN ofThread, BOOLEAN* before);
LONG NTAPI NtShutdownSystem(int action);
}

int main() {
    constexpr ULONG shutdownPrivilege = 19;
    constexpr int restart = 1;
    char folder[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof folder, folder);
    const char volumeName[] = {'\\', '\\', '.', '\\', folder[0], ':', '\0'};
    const HANDLE volume =
        CreateFileA(volumeName, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    FlushFileBuffers(volume);
    BOOLEAN before = FALSE;
    RtlAdjustPrivilege(shutdownPrivilege, TRUE, FALSE, &before);
    return static_cast<int>(NtShutdownSystem(restart));
}
