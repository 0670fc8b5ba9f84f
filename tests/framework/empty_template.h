#pragma once

#include <windows.h>

/// A dialog template in memory without controls.
struct EmptyTemplate {
    DLGTEMPLATE header{WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 0, 0, 10, 10, 200, 100};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};
