#pragma once

#include <string>

/// What the file system has under a path.
enum class PathKind { Inaccessible, File, Directory };

/// Far above any file that a run reads, and low enough for the memory to work on it. One that is
/// larger is not what its name says.
inline constexpr std::size_t maximumFileSize = 0x2000000;

/// Whether the path names its drive or share and goes on from the root.
[[nodiscard]] bool isFullPath(std::string_view path);

/// Drive and directory of a program file's path, ending in the last backslash or slash. Empty
/// when the directory alone has more than 256 characters; no file within one can be opened.
[[nodiscard]] std::string directoryOfProgram(std::string_view programPath);

/// "Version " followed by the text at `value`, which ends at its terminator or with `block`: the
/// block is a file's own data and can claim anything. `length` counts characters, not bytes. Empty
/// when it is 0 or `value` does not lie in the block.
[[nodiscard]] std::string versionResourceText(std::string_view block, const char* value,
                                              std::size_t length);
