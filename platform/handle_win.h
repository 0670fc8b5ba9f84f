// One owner for every kind of handle that Windows hands out.
#pragma once

#include <windows.h>

/// Owns a handle and closes it with `Close`. Empty is null, or what CreateFile and its like return
/// on failure.
template <class Handle, class Close>
class Owner {
  public:
    Owner() = default;
    explicit Owner(Handle owned) : handle(owned) {}
    ~Owner() { reset(); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    [[nodiscard]] explicit operator bool() const {
        return handle != nullptr && handle != INVALID_HANDLE_VALUE;
    }
    [[nodiscard]] Handle get() const { return handle; }
    /// Where a call puts the handle that it opens; only while empty.
    [[nodiscard]] Handle* receive() { return &handle; }
    /// Closes what is held and takes `owned` in its place. Returns what the close returned, zero
    /// when nothing was held.
    auto reset(Handle owned = nullptr) {
        const auto result = *this ? Close()(handle) : decltype(Close()(handle))();
        handle = owned;
        return result;
    }

  private:
    Handle handle = nullptr;
};

struct CloseKernelHandle {
    BOOL operator()(HANDLE handle) const { return CloseHandle(handle); }
};
using KernelHandle = Owner<HANDLE, CloseKernelHandle>;

struct CloseFileSearch {
    BOOL operator()(HANDLE search) const { return FindClose(search); }
};
using FileSearch = Owner<HANDLE, CloseFileSearch>;

struct CloseRegistryKey {
    LSTATUS operator()(HKEY key) const { return RegCloseKey(key); }
};
using RegistryHandle = Owner<HKEY, CloseRegistryKey>;

struct ReleaseScreen {
    int operator()(HDC context) const { return ReleaseDC(nullptr, context); }
};
/// Of the whole screen, GetDC(nullptr).
using ScreenContext = Owner<HDC, ReleaseScreen>;

struct FreeSecurityId {
    PSID operator()(PSID id) const { return FreeSid(id); }
};
using SecurityId = Owner<PSID, FreeSecurityId>;
