// A stand-in for the setup utility: tells that it was started, and ends.
#include "tools/benchmarks/benchmark_win.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const HANDLE event = OpenEventA(EVENT_MODIFY_STATE, FALSE, launchEvent);
    SetEvent(event);
    CloseHandle(event);
    return 0;
}
