#include "catalogue/product_data_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "catalogue/cipher.h"

namespace {

constexpr const char* versionText = "[Version Number]\r\nVersion Number=1.2.3.4\r\n";

/// A folder of its own and, for what is looked for beside the program, the program's.
class ProductDataFileTest : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        removeFiles(besideProgram);
    }
    void TearDown() override {
        std::filesystem::remove_all(folder);
        removeFiles(besideProgram);
    }

    static void write(const std::filesystem::path& path, const std::string& content) {
        std::ofstream(path, std::ios::binary) << content;
    }
    static void removeFiles(const std::filesystem::path& from) {
        std::filesystem::remove(from / "ProductData.ini");
        std::filesystem::remove(from / "ProductData.inx");
    }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / "product_data_file_test";
    const std::filesystem::path besideProgram = std::filesystem::path(_pgmptr).parent_path();
    const std::string plainPath = (folder / "ProductData.ini").string();
    const std::string encipheredPath = (folder / "ProductData.inx").string();
    ProductDataFile file;
    std::string path = "old";
    std::string error;
};

TEST_F(ProductDataFileTest, IsFoundOnALaterTryAndThenKept) {
    EXPECT_FALSE(file.loadText(folder.string(), path, error));
    EXPECT_EQ(error, "Cannot find product data.");
    EXPECT_EQ(path, "");

    write(plainPath, versionText);
    EXPECT_TRUE(file.loadText(folder.string(), path, error));
    EXPECT_EQ(path, plainPath);

    std::filesystem::remove(plainPath);
    path.clear();
    EXPECT_TRUE(file.loadText("C:\\elsewhere", path, error));
    EXPECT_EQ(path, plainPath);
}

TEST_F(ProductDataFileTest, PrefersTheEncipheredFileEvenWhenDamaged) {
    write(plainPath, versionText);
    write(encipheredPath, versionText);
    EXPECT_FALSE(file.loadText(folder.string() + "\\", path, error));
    EXPECT_EQ(error, "Cannot load product data - The text is not enciphered.");

    write(encipheredPath, encipher(versionText));
    EXPECT_TRUE(file.loadText(folder.string() + "\\", path, error));
    EXPECT_EQ(path, encipheredPath);
}

TEST_F(ProductDataFileTest, ReportsAFileThatCannotBeRead) {
    std::filesystem::create_directory(plainPath);
    EXPECT_FALSE(file.loadText(folder.string(), path, error));
    EXPECT_EQ(error, "Cannot load product data - The file cannot be read.");
}

TEST_F(ProductDataFileTest, FillsTheCatalogueFromBesideTheProgram) {
    CProductData catalogue;
    EXPECT_FALSE(file.loadProductValues(catalogue, &path));
    EXPECT_EQ(catalogue.lastError, "Cannot find product data.");
    EXPECT_EQ(catalogue.buildVersion(), compiledInBuild);

    write(besideProgram / "ProductData.inx", encipher(versionText));
    EXPECT_TRUE(file.loadProductValues(catalogue, &path));
    EXPECT_EQ(std::filesystem::path(path), besideProgram / "ProductData.inx");
    EXPECT_EQ(catalogue.buildVersion(), "1.2.3.4");

    // A second reading gives the same from the kept text.
    catalogue.ProductDataValues.clear();
    EXPECT_TRUE(file.loadProductValues(catalogue));
    EXPECT_EQ(catalogue.buildVersion(), "1.2.3.4");
}

}  // namespace
