#pragma once

#include <windows.h>

#include <atomic>
#include <string_view>
#include <thread>

inline BOOL CALLBACK noteVisibleDialog(HWND window, LPARAM dialog) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    if (std::string_view(name) != "#32770" || !IsWindowVisible(window)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(dialog) = window;
    return FALSE;
}

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
            EnumThreadWindows(thread, noteVisibleDialog, reinterpret_cast<LPARAM>(&dialog));
            if (dialog != nullptr) {
                drive(dialog);
                PostMessageA(dialog, WM_CLOSE, 0, 0);
                return;
            }
        }
    });
    const auto result = show();
    ended = true;
    driver.join();
    return result;
}
