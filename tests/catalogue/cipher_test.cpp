#include "catalogue/cipher.h"

#include <gtest/gtest.h>

#include <vector>

TEST(Cipher, GivesBackWhatItTook) {
    std::string every(70'000, '\0');
    for (std::size_t index = 0; index < every.size(); ++index) {
        every[index] = static_cast<char>(index * index >> 3);
    }
    for (const std::string& plain : {std::string(), every}) {
        std::string result = "old", error;
        EXPECT_TRUE(decipher(encipher(plain), result, error)) << error;
        EXPECT_EQ(result, plain);
    }
    // The header is read by tools of other releases too: length 1, checksum of "a".
    EXPECT_EQ(encipher("a").substr(0, 12), std::string("HTX1\1\0\0\0\x2C\x29\x0C\xE4", 12));
    EXPECT_EQ(encipher("[Version Number]").find("Version"), std::string::npos);
}

TEST(Cipher, DetectsDamageToAnyByte) {
    const std::string whole = encipher("Version Number=16.4\r\n");
    std::vector<std::string> damaged = {whole + '\0', "[Version Number]\r\nVersion Number=1\r\n"};
    for (std::size_t index = 0; index < whole.size(); ++index) {
        damaged.push_back(whole.substr(0, index));
        for (int mask = 1; mask < 256; ++mask) {
            damaged.push_back(whole);
            damaged.back()[index] ^= static_cast<char>(mask);
        }
    }
    for (const std::string& text : damaged) {
        std::string plain = "old", error;
        EXPECT_FALSE(decipher(text, plain, error));
        EXPECT_TRUE(plain.empty() && !error.empty());
    }
}
