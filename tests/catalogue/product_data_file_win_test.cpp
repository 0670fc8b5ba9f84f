#include "catalogue/product_data_file_win.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

TEST(ProductDataFile, TellsWhatIsWrongAndTriesAgain) {
    const auto folder = std::filesystem::temp_directory_path() / "product data";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "ProductData.inx");
    CProductData file;
    std::string path = "old", error;
    EXPECT_FALSE(loadProductValues(file)) << "beside the tests there are none";
    EXPECT_EQ(file.lastError, "Cannot find product data.");
    EXPECT_FALSE(loadProductDataText(file, "C:\\nowhere", path, error));
    EXPECT_EQ(path + error, "Cannot find product data.");
    EXPECT_FALSE(loadProductDataText(file, folder.string(), path, error));
    EXPECT_EQ(error, "Cannot load product data - The file cannot be read.");
    std::filesystem::remove(folder / "ProductData.inx");
    std::ofstream(folder / "ProductData.inx") << "plain";
    EXPECT_FALSE(loadProductDataText(file, folder.string() + '\\', path, error));
    EXPECT_EQ(error, "Cannot load product data - The text is not enciphered.");
    // Up to 32 MB the content is looked at.
    std::filesystem::resize_file(folder / "ProductData.inx", 0x2000000);
    EXPECT_FALSE(loadProductDataText(file, folder.string(), path, error));
    EXPECT_EQ(error, "Cannot load product data - The text is not enciphered.");
    std::filesystem::resize_file(folder / "ProductData.inx", 0x2000001);
    EXPECT_FALSE(loadProductDataText(file, folder.string(), path, error));
    EXPECT_EQ(error, "Cannot load product data - The file cannot be read.");
    std::filesystem::resize_file(folder / "ProductData.inx", 5);
    std::filesystem::rename(folder / "ProductData.inx", folder / "ProductData.ini");
    // Somebody else has it open, free to do anything with it.
    const HANDLE open = CreateFileA((folder / "ProductData.ini").string().c_str(),
                                    GENERIC_READ | GENERIC_WRITE | DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_TRUE(loadProductDataText(file, folder.string() + '\\', path, error));
    CloseHandle(open);
    EXPECT_EQ(path, (folder / "ProductData.ini").string());
    // Kept from then on.
    std::filesystem::remove_all(folder);
    path.clear();
    EXPECT_TRUE(loadProductDataText(file, "C:\\nowhere", path, error));
    EXPECT_EQ(path, (folder / "ProductData.ini").string());
}

}  // namespace
