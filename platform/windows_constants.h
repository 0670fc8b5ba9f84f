// Constants of Windows that decisions are made from, for files that also build without its headers.
// windows_constants_win.cpp holds each against the header that it mirrors.
#pragma once

#include <cstddef>
#include <cstdint>

/// MAX_PATH of minwindef.h: characters in a composed path, terminator not counted.
inline constexpr std::size_t maximumPathLength = 260;

// winerror.h.
inline constexpr std::uint32_t errorSuccess = 0;
inline constexpr std::uint32_t errorFileNotFound = 2;
inline constexpr std::uint32_t errorInvalidData = 13;
inline constexpr std::uint32_t errorMoreData = 234;
inline constexpr std::uint32_t errorNoMoreItems = 259;

// winnt.h: types of registry values.
inline constexpr std::uint32_t stringType = 1;
inline constexpr std::uint32_t expandableStringType = 2;
inline constexpr std::uint32_t binaryType = 3;
inline constexpr std::uint32_t numberType = 4;
inline constexpr std::uint32_t textsType = 7;

// winnt.h: attributes of files.
inline constexpr std::uint32_t fileAttributeReparsePoint = 0x400;

// winnt.h: what describes a release of Windows.
inline constexpr std::uint32_t platformWin32s = 0;
inline constexpr std::uint32_t platformWindows = 1;
inline constexpr std::uint32_t platformNt = 2;
inline constexpr std::uint8_t productTypeWorkstation = 1;
inline constexpr std::uint16_t suiteHomeServer = 0x8000;
inline constexpr std::uint16_t architectureAmd64 = 9;
