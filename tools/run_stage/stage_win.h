// What the real stage has beyond the rows that both stages play.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tools/run_stage/stage.h"

/// A copy of a file that lies beside the tests.
[[nodiscard]] Given copied(const std::string& name, const std::string& path);
/// A stand-in that runs before and during the run; its handle goes to the end of `processes`.
[[nodiscard]] Given running(const std::string& path, std::vector<HANDLE>& processes);
/// Another installer than the one that every row puts beside the media.
[[nodiscard]] Given installerAt(const std::string& path);
[[nodiscard]] Given registeredBelow(HKEY root, const std::string& key, const std::string& name,
                                    const std::string& text, REGSAM view = 0);

[[nodiscard]] std::string readFile(const std::string& path);
/// Tries until a deadline: a program that has ended may hold its file for a while.
void removeFolder(const std::string& path);
