#pragma once

#include "platform/ansi_text.h"

/// The ANSI code page that Windows uses for this process.
[[nodiscard]] CodePage systemCodePage();
