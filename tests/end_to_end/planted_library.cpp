// A library that anybody could have put into a folder: leaves a file "<own path>.<program>" when a
// program loads it. Nothing but kernel32, so that it can stand in for any other library.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        char mark[2 * MAX_PATH], program[MAX_PATH];
        GetModuleFileNameA(library, mark, MAX_PATH);
        DWORD name = GetModuleFileNameA(nullptr, program, MAX_PATH);
        while (name > 0 && program[name - 1] != '\\') {
            --name;
        }
        lstrcatA(mark, ".");
        lstrcatA(mark, program + name);
        const HANDLE file = CreateFileA(mark, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, "loaded", 6, &written, nullptr);
        CloseHandle(file);
    }
    return TRUE;
}
