#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/code_directory.h"
#include "catalogue/product_catalogue.h"
#include "catalogue/product_code.h"
#include "catalogue/product_names.h"

namespace {

/// FNV-1a, 32 bits, of one line KEY=VALUE for each row in ascending order of the keys.
std::uint32_t sumOf(const CProductData::TextMap& map, bool withValues = true) {
    std::uint32_t sum = 2166136261;
    for (const auto& [key, value] : map) {
        for (const char character : key + '=' + (withValues ? value : "") + '\n') {
            sum = (sum ^ static_cast<unsigned char>(character)) * 16777619;
        }
    }
    return sum;
}

CProductData::TextMap mapOf(const CProductData::TextSet& set) {
    CProductData::TextMap map;
    for (const std::string& key : set) {
        map[key];
    }
    return map;
}

}  // namespace

// The catalogue is the product line's, not the program's: the sums were made from the product
// line's own lists. Names and descriptions are free, so only their codes are summed.
TEST(ProductData, HoldsTheProductLinesRows) {
    const CProductData data;
    EXPECT_EQ(sumOf(data.DecoderDescriptions, false), 0x48D8D100u);
    EXPECT_EQ(sumOf(data.ProductNames, false), 0xC0E02C4Au);
    EXPECT_EQ(sumOf(data.DemoOf), 0x1419C109u);
    EXPECT_EQ(sumOf(mapOf(data.DemoProducts)), 0xE40DF20Eu);
    EXPECT_EQ(sumOf(mapOf(data.ViewerProducts)), 0x85165DEDu);
    EXPECT_EQ(sumOf(data.DecoderCategories), 0x5164A568u);
    EXPECT_EQ(sumOf(data.FullProductOf), 0xBF9889D3u);
    EXPECT_EQ(sumOf(data.ProductGroups), 0xECA1C7FBu);
    EXPECT_EQ(sumOf(data.RelatedProducts), 0x9396157Bu);
    EXPECT_EQ(sumOf(data.ImportFormatNames), 0x1527204Eu);
    EXPECT_EQ(sumOf(data.ImportFormatMedia), 0x88E20077u);
    EXPECT_EQ(sumOf(data.ImportFormatShortNames), 0x261EE259u);
    EXPECT_EQ(sumOf(data.ImportFormatFilters), 0x139F718Eu);
    EXPECT_EQ(sumOf(data.ProductImportFormats), 0x252EB33Cu);
    EXPECT_EQ(sumOf(data.FieldbusTypes), 0x9011A2C7u);
    EXPECT_EQ(sumOf(data.ProductDecoders), 0x7CD635DDu);
    EXPECT_EQ(sumOf(data.DisplayNameTemplates), 0xF5AE9666u);
    EXPECT_EQ(sumOf(data.ProductConfigurations), 0x3BC3ED5Bu);
    EXPECT_EQ(data.ProductIds.size(), 23u);
    for (const auto& [product, code] : data.ProductIds) {
        EXPECT_EQ(data.ProductNames.at(code), product);
    }
    EXPECT_TRUE(data.ProductDataValues.empty());
    EXPECT_EQ(data.DecoderDescriptions.at("**"), "No Restriction");
    for (const auto& [code, description] : data.DecoderDescriptions) {
        EXPECT_EQ(description.find("-" + code + " (") != std::string::npos ||
                      description.ends_with(" - " + code),
                  code != "**")
            << description;
    }
}

TEST(ProductData, Editions) {
    const CProductData data;
    struct {
        const char *code, *demonstration;
        bool viewer, processorSpecific;
    } const cases[] = {
        {"04", "0h", true, false}, {"07", "0u", true, true}, {"1k", "0g", true, false},
        {"1m", "1b", true, true},  {"1M", "", false, true},  {"0g", "", false, false},
        {"1c", "", true, false},   {"", "", false, false},
    };
    for (const auto& row : cases) {
        std::string demonstration = "old";
        EXPECT_EQ(data.demonstrationCode(row.code, demonstration), *row.demonstration != '\0');
        EXPECT_EQ(demonstration, row.demonstration) << row.code;
        EXPECT_EQ(data.hasDemonstrationEdition(row.code), *row.demonstration != '\0');
        EXPECT_EQ(data.hasFileViewerEdition(row.code), row.viewer) << row.code;
        EXPECT_EQ(data.hasProcessorSpecificSetups(row.code), row.processorSpecific) << row.code;
    }
}

TEST(ProductData, DisplayName) {
    struct {
        const char *code, *edition, *build, *name, *error;
    } const cases[] = {
        {"1k", "Viewer", "16.4.12000.0", "Tavlink Serial Analyzer Viewer 16.4.12000.0", ""},
        {"1k", "", "", "Tavlink Serial Analyzer 16.4.10002.0", ""},
        {"0g", "Demo", nullptr, "Tavlink Serial Demo 16.4.10002.0", ""},
        {"0g", "demo", nullptr, "Tavlink Serial Demo demo 16.4.10002.0", ""},
        {"1w", "Viewer", "1.2", "1.2", ""},
        {"0q", "Viewer", "1.2", "Tavlink Universal Analyzer Viewer", ""},
        {"1q", "", "1.2", "Bluetooth Protocol Viewer", ""},
        {"19", "Demo", "1.2", "", "No product with id \"19\" is supported."},
        {"1M", "", "1.2", "", "No product with id \"1M\" is supported."},
        {"", "Demo", "1.2", "", ""},
    };
    std::string name = "old";
    for (const auto& row : cases) {
        CProductData data;
        if (row.build != nullptr) {
            data.ProductDataValues["Version Number"] = row.build;
        }
        EXPECT_EQ(data.displayName(row.code, row.edition, name), *row.name != '\0') << row.code;
        EXPECT_EQ(name, row.name);
        EXPECT_EQ(data.lastError, row.error);
    }
    CProductData data;
    data.DisplayNameTemplates["1k"] = "<build>, <Product Name>, <BUILD>";
    EXPECT_TRUE(data.displayName("1k", "", name));
    EXPECT_EQ(name, "16.4.10002.0, Tavlink Serial Analyzer, 16.4.10002.0");
    EXPECT_FALSE(data.productName("", name));
    EXPECT_EQ(data.lastError, "No product id specified.");
}

TEST(CodeDirectory, NamesEveryCodeEverIssued) {
    const CProductData data;
    CProductData::TextMap directory;
    std::string name;
    EXPECT_TRUE(findDirectoryName("**", name));
    EXPECT_EQ(name, "All Products");
    directory["**"] = name;
    for (int number = 0; number < 1024; ++number) {
        if (findDirectoryName(number, name)) {
            directory[codeFromNumber(number)] = name;
        }
    }
    EXPECT_EQ(sumOf(directory, false), 0x3CDBC9BC);
    for (const auto& [code, product] : data.ProductNames) {
        EXPECT_EQ(directory[code], product);
    }
    EXPECT_EQ(data.ProductNames.at("1q"), protocolViewerName);
    EXPECT_FALSE(findDirectoryName("", name) || findDirectoryName("1M", name));
    // The last five bits of -1 are those of "z", and "0z" is a partner's product.
    EXPECT_FALSE(findDirectoryName(-1, name)) << name;
    EXPECT_EQ(name, "");
    // Older versions are found by a name within a display name: one product's must not find
    // another's.
    for (const auto& row : directory) {
        EXPECT_FALSE(row.second.starts_with("Halvick"));
        EXPECT_EQ(std::count_if(directory.begin(), directory.end(),
                                [&row](const auto& other) {
                                    return other.second.find(row.second) != std::string::npos;
                                }),
                  1)
            << row.second;
    }
}
