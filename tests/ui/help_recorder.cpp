// Stands in for the HTML Help control: ordinal 14 keeps what it was handed.
#include <windows.h>

#include <cstring>

extern "C" {
HWND lastOwner;
char lastFile[MAX_PATH];
UINT lastCommand;
DWORD_PTR lastData;
int callCount;

HWND WINAPI recordHelp(HWND owner, const char* file, UINT command, DWORD_PTR data) {
    lastOwner = owner;
    std::strncpy(lastFile, file, MAX_PATH - 1);
    lastCommand = command;
    lastData = data;
    ++callCount;
    return nullptr;
}
}
