#include <windows.h>

#include "framework/application.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    CWinApp* application = AfxGetApp();
    return application->InitInstance() ? application->Run() : 0;
}
