#include "catalogue/cipher.h"

namespace {

std::uint32_t numberAt(std::string_view bytes, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t index = 4; index-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[offset + index]);
    }
    return number;
}

}  // namespace

std::string encipher(std::string_view plain) {
    std::string result(cipher::headerSize + plain.size(), '\0');
    cipher::encipherInto(plain, result.data());
    return result;
}

bool decipher(std::string_view enciphered, std::string& plain, std::string& error) {
    plain.clear();
    if (enciphered.size() < cipher::headerSize || !enciphered.starts_with(cipher::magic)) {
        error = "The text is not enciphered.";
        return false;
    }
    const std::string_view body = enciphered.substr(cipher::headerSize);
    if (body.size() != numberAt(enciphered, 4)) {
        error = "The enciphered text is not of the length that it states.";
        return false;
    }
    plain = body;
    cipher::KeyStream key;
    for (char& character : plain) {
        character = static_cast<char>(character ^ key.next());
    }
    if (cipher::checksum(plain) != numberAt(enciphered, 8)) {
        plain.clear();
        error = "The enciphered text is damaged.";
        return false;
    }
    return true;
}
