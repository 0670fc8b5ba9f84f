// The program: the run on the real computer. In one file, since the application is constructed
// after the computer that it runs on.
#include "app/install_app.h"
#include "app/windows_machine_win.h"

namespace {

WindowsMachine computer;
CInstallApp application(computer);

}  // namespace
