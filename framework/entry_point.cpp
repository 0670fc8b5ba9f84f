#include <windows.h>

#include "framework/win_app.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    CWinApp* application = AfxGetApp();
    return application->InitInstance() ? application->Run() : 0;
}
