// Unique handles for every kind that Windows hands out.
#pragma once

#include <windows.h>

#include <utility>

/// The one owner of a handle, which it closes with `close`. Empty is null, or what CreateFile and
/// its like return on failure. Closing keeps the thread's last error.
template <class Handle, auto close>
class UniqueHandle {
  public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle owned) : handle(owned) {}
    ~UniqueHandle() { reset(); }
    UniqueHandle(UniqueHandle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        reset(std::exchange(other.handle, nullptr));
        return *this;
    }

    [[nodiscard]] explicit operator bool() const {
        return handle != nullptr && handle != INVALID_HANDLE_VALUE;
    }
    [[nodiscard]] Handle get() const { return handle; }
    /// Where a call puts the handle that it opens; only while empty.
    [[nodiscard]] Handle* receive() { return &handle; }
    /// Closes what is held and takes `owned` in its place. Returns what the close returned, zero
    /// when nothing was held.
    auto reset(Handle owned = nullptr) {
        const DWORD lastError = GetLastError();
        const auto result = *this ? close(handle) : decltype(close(handle))();
        SetLastError(lastError);
        handle = owned;
        return result;
    }

  private:
    Handle handle = nullptr;
};

using KernelHandle = UniqueHandle<HANDLE, CloseHandle>;
using FileSearch = UniqueHandle<HANDLE, FindClose>;
using RegistryHandle = UniqueHandle<HKEY, RegCloseKey>;
using SecurityId = UniqueHandle<PSID, FreeSid>;

inline int releaseScreen(HDC context) {
    return ReleaseDC(nullptr, context);
}
/// Of the whole screen, GetDC(nullptr).
using ScreenDeviceContext = UniqueHandle<HDC, releaseScreen>;
