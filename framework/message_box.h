#pragma once

#include <windows.h>

#include <string>

/// A message box owned by the active dialog, titled with the application's name. `type` takes the
/// MB_ flags of winuser.h. Returns the button's id.
int AfxMessageBox(const std::string& text, UINT type = MB_OK | MB_ICONEXCLAMATION);
