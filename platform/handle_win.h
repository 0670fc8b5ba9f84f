// Unique handles for every kind that Windows hands out.
#pragma once

#include <windows.h>

#include <utility>

/// The one owner of a handle, which it closes with `Close`. Empty is null, or what CreateFile and
/// its like return on failure. Closing keeps the thread's last error.
template <class Handle, class Close>
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
        const auto result = *this ? Close()(handle) : decltype(Close()(handle))();
        SetLastError(lastError);
        handle = owned;
        return result;
    }

  private:
    Handle handle = nullptr;
};

struct CloseKernelHandle {
    BOOL operator()(HANDLE handle) const { return CloseHandle(handle); }
};
using KernelHandle = UniqueHandle<HANDLE, CloseKernelHandle>;

struct CloseFileSearch {
    BOOL operator()(HANDLE search) const { return FindClose(search); }
};
using FileSearch = UniqueHandle<HANDLE, CloseFileSearch>;

struct CloseRegistryKey {
    LSTATUS operator()(HKEY key) const { return RegCloseKey(key); }
};
using RegistryHandle = UniqueHandle<HKEY, CloseRegistryKey>;

struct ReleaseScreenDeviceContext {
    int operator()(HDC context) const { return ReleaseDC(nullptr, context); }
};
/// Of the whole screen, GetDC(nullptr).
using ScreenDeviceContext = UniqueHandle<HDC, ReleaseScreenDeviceContext>;

struct FreeSecurityId {
    PSID operator()(PSID id) const { return FreeSid(id); }
};
using SecurityId = UniqueHandle<PSID, FreeSecurityId>;
