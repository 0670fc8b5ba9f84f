#include "platform/pending_input_win.h"

#include <windows.h>

namespace {

void discardMessages(UINT first, UINT last) {
    MSG message;
    while (PeekMessageA(&message, nullptr, first, last, PM_REMOVE)) {
    }
}

}  // namespace

void discardInput() {
    discardMessages(WM_KEYFIRST, WM_KEYLAST);
    discardMessages(WM_MOUSEFIRST, WM_MOUSELAST);
    discardMessages(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK);
}
