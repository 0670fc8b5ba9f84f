#include "catalogue/product_code.h"

#include "tests/rows.h"

TEST(ProductCode, IsWrittenInBase32) {
    expectRows<std::tuple<int, int>, std::string>({{{18, 2}, "0k"},
                                                   {{21, 2}, "0p"},
                                                   {{31, 2}, "0z"},
                                                   {{60, 2}, "1w"},
                                                   {{1024, 2}, "100"},
                                                   {{0, 0}, "0"},
                                                   {{60, -5}, "1w"},
                                                   {{4, 4}, "0004"},
                                                   {{-1, 2}, "0z"},
                                                   {{-33, 2}, "yz"}},
                                                  codeFromNumber);
    EXPECT_EQ(codeFromNumber(4), "04");
}

TEST(ProductCode, IsReadOrSaysWhyNot) {
    for (int number = 0; number < 1024; ++number) {
        EXPECT_EQ(numberFromCode(codeFromNumber(number)), number);
    }
    EXPECT_EQ(numberFromCode("1Q"), 54);
    EXPECT_EQ(numberFromCode(std::string(1000, 'z')), -1);  // wraps round
    expectRows<std::string, std::string>({{"", "Empty source string."},
                                          {"0I", "Invalid character: i"},
                                          {"jo", "Invalid character: j"},
                                          {"**", "Invalid character: *"}},
                                         [](const std::string& code) {
                                             std::string error;
                                             EXPECT_EQ(numberFromCode(code, &error), -1);
                                             return error;
                                         });
}
