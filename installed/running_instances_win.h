#pragma once

#include <string>

/// Stops every running process whose executable file name is `executableName` and one of whose
/// modules has the full path `executablePath`, both without regard to case. Returns the wait
/// result of the last process stopped: 0 when it ended within five seconds (or nothing needed
/// stopping), WAIT_TIMEOUT (258) or WAIT_FAILED (0xFFFFFFFF); or GetLastError when no process
/// snapshot could be taken. Blocks, pumping no messages.
[[nodiscard]] unsigned long terminateProcessesByPath(const std::string& executableName,
                                                     const std::string& executablePath);
