#pragma once

#include "app/message.h"

/// Shows the box, owned by the active dialog, and waits for the answer. True for Yes.
bool showMessage(const Message& message);
