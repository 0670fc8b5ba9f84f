#pragma once

#include <windows.h>

/// Owns a handle that CloseHandle closes. Empty is null; INVALID_HANDLE_VALUE counts as empty.
class KernelHandle {
  public:
    KernelHandle() = default;
    explicit KernelHandle(HANDLE owned) : handle(owned) {}
    ~KernelHandle() {
        if (*this) {
            CloseHandle(handle);
        }
    }
    KernelHandle(const KernelHandle&) = delete;
    KernelHandle& operator=(const KernelHandle&) = delete;

    explicit operator bool() const { return handle != nullptr && handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle; }
    /// Where a call puts the handle that it opens; only while empty.
    HANDLE* receive() { return &handle; }

  private:
    HANDLE handle = nullptr;
};
