#pragma once

#include <windows.h>

#include <atomic>
#include <thread>

inline BOOL CALLBACK takeVisibleDialog(HWND window, LPARAM found) {
    char className[16]{};
    GetClassNameA(window, className, sizeof className);
    if (lstrcmpA(className, "#32770") != 0 || !IsWindowVisible(window)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// The visible dialog of a thread, waited for at most 10 seconds or until `ended`; else null.
inline HWND waitForDialog(DWORD thread, const std::atomic<bool>& ended) {
    for (const DWORD start = GetTickCount(); GetTickCount() - start < 10000 && !ended; Sleep(5)) {
        HWND dialog = nullptr;
        EnumThreadWindows(thread, takeVisibleDialog, reinterpret_cast<LPARAM>(&dialog));
        if (dialog != nullptr) {
            return dialog;
        }
    }
    return nullptr;
}

/// Runs `show`, which shows a modal dialog, and meanwhile `drive(HWND dialog)` on another thread.
/// A dialog that is still there after it is closed. Returns what `show` returned.
template <class Show, class Drive>
auto driveModal(Show show, Drive drive) {
    std::atomic<bool> ended = false;
    std::thread driver([&, thread = GetCurrentThreadId()] {
        if (const HWND dialog = waitForDialog(thread, ended)) {
            drive(dialog);
            PostMessageA(dialog, WM_CLOSE, 0, 0);
        }
    });
    const auto result = show();
    ended = true;
    driver.join();
    return result;
}
