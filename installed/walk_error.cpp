#include "installed/walk_error.h"

namespace {

char text[2049] = "";  // terminator included

}  // namespace

const char* walkError() {
    return text;
}

void setWalkError(std::string_view description) {
    text[description.copy(text, sizeof text - 1)] = '\0';
}
