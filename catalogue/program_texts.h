#pragma once

#include <string>

/// The program's own texts, which are stored enciphered.
struct ProgramTexts {
    std::string hardwarePrompt;  ///< prompt of the product-type dialog
    std::string selectionError;  ///< shown when the choice of a product type ends without a result
};

[[nodiscard]] ProgramTexts readProgramTexts();
