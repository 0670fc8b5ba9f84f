#pragma once

#include <string>
#include <string_view>

/// What the file system has under a path.
enum class PathKind { Inaccessible, File, Directory };

/// Drive and directory of a program file's path, ending in the last backslash or slash. Empty
/// when the directory alone has more than 256 characters; no file within one can be opened.
[[nodiscard]] std::string directoryOfProgram(std::string_view programPath);
