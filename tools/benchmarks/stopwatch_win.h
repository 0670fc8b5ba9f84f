#pragma once

#include <windows.h>

#include <algorithm>
#include <vector>

/// Runs from its construction on.
class Stopwatch {
  public:
    Stopwatch() { QueryPerformanceCounter(&start); }

    double milliseconds() const {
        LARGE_INTEGER now, frequency;
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&frequency);
        return 1000.0 * static_cast<double>(now.QuadPart - start.QuadPart) /
               static_cast<double>(frequency.QuadPart);
    }

  private:
    LARGE_INTEGER start;
};

inline double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}
