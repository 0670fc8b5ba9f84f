#include "app/install_app.h"

CInstallApp theApp;
