// The cipher of "ProductData.inx" and of the program's own texts. It keeps them from being read
// or edited by accident and detects damage; it is no protection against an attacker, since the
// program holds all it takes to reverse it.
#pragma once

#include <string>
#include <string_view>

std::string encipher(std::string_view plain);

/// False with `error` filled when the bytes are not an enciphered text or are damaged.
bool decipher(std::string_view enciphered, std::string& plain, std::string& error);
