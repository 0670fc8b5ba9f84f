// The program: the run on the real computer.
#include "app/install_app.h"
#include "app/windows_machine_win.h"

namespace {

CInstallApp application(windowsMachine());

}  // namespace
