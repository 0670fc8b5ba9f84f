#pragma once

#include <string>
#include <string_view>

/// Drive and directory of a program file's path, ending in the last backslash or slash. Empty
/// when the directory alone has more than 256 characters; no file within one can be opened.
std::string programDirectory(std::string_view programPath);
