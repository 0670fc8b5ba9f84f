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
    machine.files["C:\\comments\\ProductData.ini"].content = ";";
    EXPECT_TRUE(loadProductDataText(data, machine, "C:\\comments", path, error));
    machine.files["C:\\damaged\\ProductData.inx"];
    EXPECT_FALSE(loadProductDataText(data, machine, "C:\\damaged", path, error));
    EXPECT_FALSE(loadProductDataText(data, machine, "C:\\nowhere", path, error)) << "none yet";
    EXPECT_EQ(path, "");
    EXPECT_TRUE(loadProductDataText(data, machine, "C:\\media\\", path, error));
    EXPECT_EQ(path, "C:\\media\\ProductData.ini");
    machine.files.clear();  // kept from then on
    path.clear();
    EXPECT_TRUE(loadProductDataText(data, machine, "C:\\nowhere", path, error));
    EXPECT_EQ(path, "C:\\media\\ProductData.ini");
}
