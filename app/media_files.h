// Files that the installer expects in the source directory.
#pragma once

inline constexpr const char* setupUtilityFile = "Setup.Exe";
/// Takes the place of an old viewer's uninstaller.
inline constexpr const char* uninstallerFile = "UninstallQmx.exe";
