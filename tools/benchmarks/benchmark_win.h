#pragma once

#include <windows.h>

#include <algorithm>
#include <vector>

/// The event that the stand-in for the setup utility sets when it has been started.
inline constexpr const char* launchEvent = "Installer benchmark launch";

/// Runs from its construction on.
class Stopwatch {
  public:
    Stopwatch() { QueryPerformanceCounter(&start); }

    [[nodiscard]] double milliseconds() const {
        LARGE_INTEGER now;
        LARGE_INTEGER frequency;
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&frequency);
        return 1000.0 * static_cast<double>(now.QuadPart - start.QuadPart) /
               static_cast<double>(frequency.QuadPart);
    }

  private:
    LARGE_INTEGER start{};
};

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}
