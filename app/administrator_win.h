#pragma once

#include <windows.h>

/// Sets `administrator` when the list names the local Administrators group, whatever its
/// attributes. Returns a Windows error code, 0 on success; after a failure `administrator` stays.
[[nodiscard]] DWORD containsAdministrators(const TOKEN_GROUPS& groups, bool& administrator);

/// Sets `administrator` when the local Administrators group is in the access token of the thread
/// or, where it has none, of the process. A group that is disabled or only denies counts as well
/// (kept: under such a filtered token, too, the user is an administrator). Returns a Windows
/// error code, 0 on success; after a failure `administrator` is false.
[[nodiscard]] DWORD IsAdministrator(bool& administrator);
