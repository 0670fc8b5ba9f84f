// One description for the whole process: what the last failing step of a registry walk was.
#pragma once

#include <string_view>

/// At most 2048 characters; empty when nothing failed since it was last emptied. Valid until the
/// next call of setWalkError.
const char* walkError();

/// Replaces the description, cut to its 2048 characters.
void setWalkError(std::string_view description);
