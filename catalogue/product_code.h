// Product codes: numbers in base 32 over "0123456789abcdefghkmnpqrstuvwxyz".
#pragma once

#include <string>

/// At least `width` digits, most significant first; a negative width adds none.
[[nodiscard]] std::string codeFromNumber(int number, int width = 2);

/// The number, or -1 with `error`, when given, saying why. Letter case is ignored.
[[nodiscard]] int numberFromCode(std::string_view code, std::string* error = nullptr);
