#include "catalogue/program_texts.h"

#include "catalogue/cipher.h"

namespace {

constexpr auto hardwarePrompt = cipher::enciphered(
    "Please select the type of product to install.\n"
    "Only the live product works with capture hardware.");
constexpr auto selectionError =
    cipher::enciphered("No type of product was selected. Nothing has been installed.");

template <std::size_t Size>
std::string deciphered(const std::array<char, Size>& bytes) {
    std::string text, error;
    return decipher({bytes.data(), bytes.size()}, text, error) ? text : std::string();
}

}  // namespace

ProgramTexts readProgramTexts() {
    return {deciphered(hardwarePrompt), deciphered(selectionError)};
}
