#pragma once

#include <windows.h>

#include <chrono>

/// The event that the stand-in for the setup utility sets when it has been started.
inline constexpr const char* launchEvent = "Installer benchmark launch";

inline double millisecondsSince(std::chrono::steady_clock::time_point start) {
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    return time.count();
}
