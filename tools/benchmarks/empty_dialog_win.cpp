// The floor for the time to the first dialog: a program of the installer's framework, options
// and manifest that shows a dialog and nothing else.
#include "framework/dialog_win.h"

namespace {

/// A dialog template in memory; the words say that there is no menu, the usual class, no title.
const struct {
    DLGTEMPLATE header{WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 0, 0, 0, 0, 236, 94};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
} emptyTemplate;

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    static_cast<void>(CDialog(&emptyTemplate.header).DoModal());
    return 0;
}
