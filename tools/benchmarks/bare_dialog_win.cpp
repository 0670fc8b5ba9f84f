// The baseline for the time to the first dialog: the installer's own dialog, without the installer.
#include <windows.h>

#include <commctrl.h>

#include "framework/dialog_win.h"
#include "ui/resource.h"

namespace {

class BareDialog : public CDialog {
  public:
    BareDialog() : CDialog(IDD_INSTALL_PRODUCT) {}

  private:
    bool OnInitDialog() override { return false; }
};

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    InitCommonControls();
    static_cast<void>(BareDialog().DoModal());  // however it was left
    return 0;
}
