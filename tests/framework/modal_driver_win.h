#pragma once

#include <windows.h>

#include <atomic>
#include <thread>

/// Runs `show`, which shows a modal dialog, and meanwhile `drive(HWND dialog)` on another thread
/// once the dialog is visible; gives up after 20 seconds. A dialog that is still there after it is
/// closed. Returns what `show` returned.
template <class Show, class Drive>
auto driveModal(Show show, Drive drive) {
    std::atomic<bool> ended = false;
    std::thread driver([&, thread = GetCurrentThreadId()] {
        for (const DWORD start = GetTickCount(); !ended && GetTickCount() - start < 20000;
             Sleep(5)) {
            HWND dialog = nullptr;
            while ((dialog = FindWindowExA(nullptr, dialog, "#32770", nullptr)) != nullptr) {
                if (GetWindowThreadProcessId(dialog, nullptr) == thread &&
                    IsWindowVisible(dialog)) {
                    drive(dialog);
                    PostMessageA(dialog, WM_CLOSE, 0, 0);
                    return;
                }
            }
        }
    });
    const auto result = show();
    ended = true;
    driver.join();
    return result;
}
