#include "catalogue/product_code.h"

#include <gtest/gtest.h>

TEST(ProductCode, FromNumber) {
    struct {
        int number, width;
        const char* code;
    } const cases[] = {
        {0, 2, "00"},    {4, 2, "04"},     {16, 2, "0g"},  {17, 2, "0h"}, {18, 2, "0k"},
        {20, 2, "0n"},   {21, 2, "0p"},    {31, 2, "0z"},  {32, 2, "10"}, {60, 2, "1w"},
        {1023, 2, "zz"}, {1024, 2, "100"}, {0, 0, "0"},    {0, -1, "0"},  {60, -5, "1w"},
        {4, 4, "0004"},  {-1, 2, "0z"},    {-33, 2, "yz"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(codeFromNumber(row.number, row.width), row.code) << row.number;
    }
}

TEST(ProductCode, ToNumber) {
    struct {
        const char* code;
        int number;
        const char* error;
    } const cases[] = {
        {"00", 0, ""},
        {"04", 4, ""},
        {"1w", 60, ""},
        {"1Q", 54, ""},
        {"zz", 1023, ""},
        {"", -1, "Empty source string."},
        {"0I", -1, "Invalid character: i"},
        {"jo", -1, "Invalid character: j"},
        {"**", -1, "Invalid character: *"},
    };
    for (const auto& row : cases) {
        std::string error;
        EXPECT_EQ(numberFromCode(row.code, &error), row.number) << row.code;
        EXPECT_EQ(error, row.error) << row.code;
    }
    EXPECT_EQ(numberFromCode(std::string(1000, 'z')), -1);  // wraps round
    for (int number = 0; number < 1024; ++number) {
        EXPECT_EQ(numberFromCode(codeFromNumber(number)), number);
    }
}
