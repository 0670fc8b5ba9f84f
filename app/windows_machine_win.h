#pragma once

#include "app/machine.h"

/// The real computer. The first call comes before anything else of the program: it restricts where
/// libraries are looked for, takes over the system's code page and readies the controls that
/// dialogs have.
[[nodiscard]] Machine& windowsMachine();
