// The cipher of "ProductData.inx" and of the program's own texts. It keeps them from being read
// or edited by accident and detects damage; it is no protection against an attacker, since the
// program holds all it takes to reverse it.
//
//   offset  size
//        0     4  magic "HTX1"
//        4     4  length of the text in bytes, little-endian
//        8     4  FNV-1a checksum of the text, little-endian
//       12     -  the text, each byte exclusive-ored with the key stream
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace cipher {

inline constexpr std::string_view magic = "HTX1";
inline constexpr std::size_t headerSize = 12;

/// The key stream: xorshift32 from a fixed start.
class KeyStream {
  public:
    constexpr char next() {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return static_cast<char>(state >> 24);
    }

  private:
    std::uint32_t state = 0x7A1C96D3;
};

[[nodiscard]] constexpr std::uint32_t checksum(std::string_view plain) {
    std::uint32_t sum = 0x811C9DC5;
    for (const char character : plain) {
        sum = (sum ^ static_cast<unsigned char>(character)) * 0x01000193;
    }
    return sum;
}

/// Writes headerSize + plain.size() bytes.
constexpr void encipherInto(std::string_view plain, char* output) {
    for (const char character : magic) {
        *output++ = character;
    }
    for (const std::uint32_t number : {static_cast<std::uint32_t>(plain.size()), checksum(plain)}) {
        for (int shift = 0; shift < 32; shift += 8) {
            *output++ = static_cast<char>(number >> shift);
        }
    }
    KeyStream key;
    for (const char character : plain) {
        *output++ = static_cast<char>(character ^ key.next());
    }
}

/// Enciphers a literal at compile time, so that the executable does not hold it readable.
template <std::size_t Size>
[[nodiscard]] consteval std::array<char, headerSize + Size - 1> enciphered(
    const char (&plain)[Size]) {
    std::array<char, headerSize + Size - 1> result{};
    encipherInto({plain, Size - 1}, result.data());
    return result;
}

}  // namespace cipher

/// For a text of less than 4 GB.
[[nodiscard]] std::string encipher(std::string_view plain);

/// False with `error` filled and `plain` empty when the bytes are not an enciphered text or are
/// damaged.
[[nodiscard]] bool decipher(std::string_view enciphered, std::string& plain, std::string& error);
