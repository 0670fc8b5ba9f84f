// One owner for every kind of handle that Windows hands out.
#pragma once

#include <windows.h>

/// Owns a handle and closes it with `Traits::close`. Empty is null; what `Traits::isHandle` turns
/// down counts as empty too.
template <class Traits>
class Owner {
  public:
    using Handle = typename Traits::Handle;

    Owner() = default;
    explicit Owner(Handle owned) : handle(owned) {}
    ~Owner() { reset(); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    [[nodiscard]] explicit operator bool() const { return Traits::isHandle(handle); }
    [[nodiscard]] Handle get() const { return handle; }
    /// Where a call puts the handle that it opens; only while empty.
    [[nodiscard]] Handle* receive() { return &handle; }
    /// Closes what is held and takes `owned` in its place. Returns what the close returned,
    /// Traits::nothingClosed when nothing was held.
    auto reset(Handle owned = nullptr) {
        const auto result = *this ? Traits::close(handle) : Traits::nothingClosed;
        handle = owned;
        return result;
    }

  private:
    Handle handle = nullptr;
};

struct KernelHandleTraits {
    using Handle = HANDLE;
    static constexpr BOOL nothingClosed = TRUE;
    static bool isHandle(HANDLE handle) {
        return handle != nullptr && handle != INVALID_HANDLE_VALUE;
    }
    static BOOL close(HANDLE handle) { return CloseHandle(handle); }
};
using KernelHandle = Owner<KernelHandleTraits>;

struct FileSearchTraits : KernelHandleTraits {
    static BOOL close(HANDLE handle) { return FindClose(handle); }
};
using FileSearch = Owner<FileSearchTraits>;

struct RegistryHandleTraits {
    using Handle = HKEY;
    static constexpr LSTATUS nothingClosed = ERROR_SUCCESS;
    static bool isHandle(HKEY key) { return key != nullptr; }
    static LSTATUS close(HKEY key) { return RegCloseKey(key); }
};
using RegistryHandle = Owner<RegistryHandleTraits>;

struct ScreenContextTraits {
    using Handle = HDC;
    static constexpr int nothingClosed = 1;
    static bool isHandle(HDC context) { return context != nullptr; }
    static int close(HDC context) { return ReleaseDC(nullptr, context); }
};
/// Of the whole screen, GetDC(nullptr).
using ScreenContext = Owner<ScreenContextTraits>;

struct SecurityIdTraits {
    using Handle = PSID;
    static constexpr PSID nothingClosed = nullptr;
    static bool isHandle(PSID id) { return id != nullptr; }
    static PSID close(PSID id) { return FreeSid(id); }
};
using SecurityId = Owner<SecurityIdTraits>;
