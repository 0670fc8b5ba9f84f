// What "check" tells, as one page for a browser: for people who would rather look than read.
#pragma once

#include <string>

#include "desk/whole_file.h"

/// A page that needs no other file. `report` is what "check --json" prints of a release, and in
/// "computers" the name of each described computer. Media have a "run", or "runs" on each computer;
/// what was not looked at, such as the files, is left out. UTF-8.
[[nodiscard]] std::string pageOf(const Json& report);
