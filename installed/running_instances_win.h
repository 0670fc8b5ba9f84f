#pragma once

#include <string>

/// What Computer promises of stopRunning, in its terms the file name and the path. Waits at most
/// five seconds for each process, pumping no messages; a wait that fails gives WAIT_FAILED
/// (0xFFFFFFFF).
[[nodiscard]] unsigned long terminateProcessesByPath(const std::string& executableName,
                                                     const std::string& executablePath);
