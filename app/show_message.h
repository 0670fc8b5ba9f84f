#pragma once

#include "app/message.h"

/// Shows the box and waits for the answer. True for OK or Yes.
bool showMessage(const Message& message);
