#pragma once

#include "platform/ansi_text.h"

/// The ANSI code page that Windows uses for this process: lead bytes from GetCPInfo, letter case
/// from CharLowerBuffA.
[[nodiscard]] CodePage systemCodePage();
