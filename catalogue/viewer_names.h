// Display names under which the two editions of the free viewer are registered.
#pragma once

inline constexpr char testSuiteViewerName[] = "Test Suite Observer";
inline constexpr char protocolViewerName[] = "Bluetooth Protocol Viewer";
static_assert(sizeof(testSuiteViewerName) == 19 + 1 && sizeof(protocolViewerName) == 25 + 1);
