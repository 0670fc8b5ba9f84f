// What a dialog tells only within its own process: which of the system's icons a control shows, and
// the rows of a list view. This library is brought there as a message hook and leaves its answers
// in memory that its copies in all processes share.
#pragma once

#include <windows.h>

#ifdef dialog_probe_EXPORTS
#define DIALOG_PROBE_API extern "C" __declspec(dllexport)
#else
#define DIALOG_PROBE_API extern "C" __declspec(dllimport)
#endif

/// The registered message that is a question to the window it is sent to: wParam is the row of a
/// list view, `columnQuestion` with a column's index, or `iconQuestion`.
inline constexpr const char* dialogProbeQuestion = "dialog_probe question";
inline constexpr WPARAM iconQuestion = ~WPARAM{0};
inline constexpr WPARAM columnQuestion = 0x10000;

/// The hook, of type WH_CALLWNDPROC.
DIALOG_PROBE_API LRESULT CALLBACK dialogProbeHook(int code, WPARAM wParam, LPARAM lParam);

/// Answer to the last question: a row's text; a column's width and LVCFMT_ bits as "20,0", empty
/// for a column that is not there; or "error", "question", "warning", "information", empty for any
/// other icon.
DIALOG_PROBE_API char dialogProbeAnswer[1024];
