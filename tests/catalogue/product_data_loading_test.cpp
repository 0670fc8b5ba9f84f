#include "catalogue/product_data_loading.h"

#include <gtest/gtest.h>

#include "desk/computer/described_machine.h"

TEST(ProductDataLoading, TellsWhatIsWrongAndTriesAgain) {
    DescribedMachine machine;
    machine.commandLine = {"C:\\own\\Install.exe"};
    CProductData data;
    std::string path = "old", error;
    EXPECT_FALSE(loadProductValues(data, machine));
    EXPECT_EQ(data.lastError, "Cannot find product data.");
    machine.files["C:\\media\\ProductData.ini"].content = "plain";
    const std::string enciphered = "C:\\media\\ProductData.inx";
    const struct {
        std::optional<std::string> content;
        const char* error;
    } rows[] = {
        {std::nullopt, "Cannot load product data - The file cannot be read."},
        {"plain", "Cannot load product data - The text is not enciphered."},
        {std::string(maximumFileSize, 'x'),
         "Cannot load product data - The text is not enciphered."},
        {std::string(maximumFileSize + 1, 'x'),
         "Cannot load product data - The file cannot be read."},
    };
    for (const auto& row : rows) {
        machine.files[enciphered].content = row.content;
        EXPECT_FALSE(loadProductDataText(data, machine, "C:\\media", path, error));
        EXPECT_EQ(error, row.error);
        EXPECT_EQ(path, "");
    }
    machine.files.erase(enciphered);
    EXPECT_TRUE(loadProductDataText(data, machine, "C:\\media\\", path, error));
    EXPECT_EQ(path, "C:\\media\\ProductData.ini");
    // Kept from then on.
    machine.files.clear();
    path.clear();
    EXPECT_TRUE(loadProductDataText(data, machine, "C:\\nowhere", path, error));
    EXPECT_EQ(path, "C:\\media\\ProductData.ini");
}
