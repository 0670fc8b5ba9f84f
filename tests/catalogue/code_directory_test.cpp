#include "catalogue/code_directory.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/product_catalogue.h"
#include "catalogue/product_code.h"

TEST(CodeDirectory, NamesEveryCodeEverIssued) {
    CProductData::TextMap directory;
    std::string name;
    EXPECT_TRUE(findDirectoryName("**", directory["**"]));
    for (int number = 0; number < 1024; ++number) {
        if (findDirectoryName(number, name)) {
            directory[codeFromNumber(number)] = name;
        }
    }
    for (const auto& [code, product] : CProductData().ProductNames) {
        EXPECT_EQ(directory[code], product);
    }
    // The last five bits of -1 are those of "z", and "0z" is a partner's product.
    EXPECT_FALSE(findDirectoryName(-1, name)) << name;
    EXPECT_FALSE(findDirectoryName("", name) || findDirectoryName("1M", name));
    EXPECT_EQ(name, "");
    // Older versions are found by a name within a display name: none may be within another.
    for (const auto& row : directory) {
        EXPECT_FALSE(row.second.starts_with("Halvick"));
        const auto isWithin = [&row](const auto& other) {
            return other.second.find(row.second) != std::string::npos;
        };
        EXPECT_EQ(std::count_if(directory.begin(), directory.end(), isWithin), 1) << row.second;
    }
}
