#include "catalogue/product_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "catalogue/code_directory.h"
#include "catalogue/product_code.h"
#include "catalogue/viewer_names.h"

namespace {

std::vector<std::string> split(const std::string& list) {
    std::vector<std::string> parts(1);
    for (const char character : list) {
        if (character == ';') {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    return parts;
}

TEST(ProductData, HoldsEveryRow) {
    const CProductData data;
    struct {
        const char* member;
        std::size_t held, expected;
    } const cases[] = {
        {"DecoderDescriptions", data.DecoderDescriptions.size(), 53},
        {"ProductNames", data.ProductNames.size(), 23},
        {"ProductIds", data.ProductIds.size(), 23},
        {"DemoOf", data.DemoOf.size(), 5},
        {"DemoProducts", data.DemoProducts.size(), 5},
        {"ViewerProducts", data.ViewerProducts.size(), 15},
        {"DecoderCategories", data.DecoderCategories.size(), 51},
        {"FullProductOf", data.FullProductOf.size(), 5},
        {"ProductGroups", data.ProductGroups.size(), 4},
        {"RelatedProducts", data.RelatedProducts.size(), 33},
        {"ImportFormatNames", data.ImportFormatNames.size(), 11},
        {"ImportFormatMedia", data.ImportFormatMedia.size(), 10},
        {"ImportFormatShortNames", data.ImportFormatShortNames.size(), 10},
        {"ImportFormatFilters", data.ImportFormatFilters.size(), 10},
        {"ProductImportFormats", data.ProductImportFormats.size(), 34},
        {"FieldbusTypes", data.FieldbusTypes.size(), 4},
        {"ProductDecoders", data.ProductDecoders.size(), 11},
        {"DisplayNameTemplates", data.DisplayNameTemplates.size(), 22},
        {"ProductConfigurations", data.ProductConfigurations.size(), 15},
        {"ProductDataValues", data.ProductDataValues.size(), 0},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.held, row.expected) << row.member;
    }
}

// What one table says of another; a misspelt code in either shows here.
TEST(ProductData, TablesAgree) {
    const CProductData data;
    std::string name;
    for (const auto& [code, full] : data.FullProductOf) {
        EXPECT_TRUE(data.DemoProducts.contains(code));
        EXPECT_EQ(data.DemoOf.at(full), code);
        EXPECT_TRUE(data.ProductNames.contains(code));
        EXPECT_FALSE(data.ViewerProducts.contains(code));
        EXPECT_TRUE(data.ViewerProducts.contains(full));
    }
    for (const auto& [product, code] : data.ProductIds) {
        EXPECT_EQ(data.ProductNames.at(code), product);
    }
    for (const std::string& code : data.ViewerProducts) {
        EXPECT_TRUE(data.ProductNames.contains(code)) << code;
    }
    for (const auto& [code, unused] : data.ProductNames) {
        EXPECT_EQ(data.DisplayNameTemplates.contains(code), code != "0q" && code != "1q") << code;
    }
    for (const auto* table : {&data.RelatedProducts, &data.ProductGroups}) {
        for (const auto& [unused, members] : *table) {
            for (const std::string& member : split(members)) {
                EXPECT_TRUE(data.ProductGroups.contains(member) || findDirectoryName(member, name))
                    << member;
            }
        }
    }
    for (const auto* table :
         {&data.RelatedProducts, &data.ProductImportFormats, &data.ProductDecoders,
          &data.ProductConfigurations, &data.DisplayNameTemplates}) {
        for (const auto& [code, unused] : *table) {
            EXPECT_TRUE(findDirectoryName(code, name)) << code;
        }
    }
    for (const auto& [code, decoders] : data.ProductDecoders) {
        for (const std::string& decoder : split(decoders)) {
            EXPECT_TRUE(data.DecoderDescriptions.contains(decoder)) << decoder;
        }
    }
    const std::set<std::string> uncategorised{"**", "aa", "ca", "ea", "ha"};
    for (const auto& [code, description] : data.DecoderDescriptions) {
        const bool named = description.find("-" + code + " (") != std::string::npos ||
                           description.ends_with(" - " + code);
        EXPECT_EQ(named, code != "**") << description;
        EXPECT_EQ(data.DecoderCategories.contains(code), !uncategorised.contains(code)) << code;
    }
    for (const std::string& decoder : split(data.ProductDecoders.at("1m"))) {
        EXPECT_EQ(data.DecoderCategories.at(decoder), "Vostrel") << decoder;
    }
    for (const auto& [code, formats] : data.ProductImportFormats) {
        for (const std::string& format : split(formats)) {
            EXPECT_TRUE(data.ImportFormatNames.contains(format == "0_vr" ? "0" : format)) << code;
        }
    }
    for (const auto& [format, shortName] : data.ImportFormatShortNames) {
        const std::string& longName = data.ImportFormatNames.at(format);
        EXPECT_TRUE(longName == shortName || longName == shortName + " file") << longName;
        EXPECT_TRUE(data.ImportFormatFilters.contains(format));
        EXPECT_EQ(data.ImportFormatMedia.contains(format), format != "9");
    }
    const std::set<std::string> media{"None", "Generic`Air", "Ethernet", "Async"};
    for (const auto& [format, medium] : data.ImportFormatMedia) {
        EXPECT_TRUE(media.contains(medium)) << medium;
    }
    for (const auto& [format, filter] : data.ImportFormatFilters) {
        const std::size_t pattern = filter.find("(*.");
        const std::string parts =
            pattern == std::string::npos
                ? ""
                : " (" + filter.substr(pattern + 1, 5) + ")|" + filter.substr(pattern + 1, 5) + "|";
        EXPECT_TRUE(filter.ends_with(" Files" + parts)) << filter;
    }
    EXPECT_EQ(split(data.ProductDecoders.at("1m")).size(), 37u);
}

TEST(ProductData, RowsThatDiffer) {
    const CProductData data;
    EXPECT_EQ(data.DisplayNameTemplates.at("1w"), "<BUILD>");
    EXPECT_EQ(data.DisplayNameTemplates.at("19"), "<PRODUCT NAME> <BUILD>");
    EXPECT_EQ(data.RelatedProducts.at("16"), "Bluetooth;17;1q;1r;1u;1v;1w");
    EXPECT_EQ(data.RelatedProducts.at("1u"), "Bluetooth;17;1q;1r;1t;1u;1v");
    EXPECT_EQ(data.RelatedProducts.at("1w"), "Bluetooth;17;1q;1r;1t;1u;1v;1w");
    EXPECT_EQ(data.RelatedProducts.at("14"), "**");
    EXPECT_EQ(data.ProductGroups.at("IA"), "0y;1m;0w;15;1a;1b;1c");
    EXPECT_EQ(data.ImportFormatMedia.at("7"), "Generic`Air");
    EXPECT_FALSE(data.ImportFormatMedia.contains("9"));
    EXPECT_FALSE(data.ImportFormatShortNames.contains("-1"));
    EXPECT_EQ(data.ImportFormatFilters.at("7"), "ChipCon Files");
    EXPECT_EQ(data.ProductImportFormats.at("1w"), "0_vr;1;3;6;9");
    EXPECT_EQ(data.ProductImportFormats.at("1d"), "7");
    EXPECT_EQ(data.DecoderCategories.at("su"), "Vostrel;Wireless");
    EXPECT_EQ(data.DecoderCategories.at("DD"), "Other");
    EXPECT_EQ(data.DecoderCategories.at("sb"), "Wireless");
    EXPECT_EQ(data.DecoderCategories.at("b*"), "Vostrel");
    EXPECT_EQ(data.FieldbusTypes.at("CAN2A"), "0x7f010100;0x7f010102");
    EXPECT_EQ(data.ProductConfigurations.at("0g"), "AsyncDemo");
    EXPECT_EQ(data.ProductConfigurations.at("1g"), "EthernetDemo");
    EXPECT_EQ(data.ProductConfigurations.at("04"), "TavlinkClassic");
    EXPECT_EQ(data.ProductConfigurations.at("0h"), "TavlinkDemo");
}

TEST(ProductData, Editions) {
    const CProductData data;
    struct {
        const char *code, *demonstration;
        bool viewer, processorSpecific;
    } const cases[] = {
        {"04", "0h", true, false}, {"07", "0u", true, true}, {"1k", "0g", true, false},
        {"1m", "1b", true, true},  {"1M", "", false, true},  {"1K", "", false, false},
        {"0g", "", false, false},  {"1c", "", true, false},  {"0q", "", false, false},
        {"1q", "", false, false},  {"1e", "", false, false}, {"", "", false, false},
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
    for (const auto& row : cases) {
        CProductData data;
        if (row.build != nullptr) {
            data.ProductDataValues["Version Number"] = row.build;
        }
        std::string name = "old";
        EXPECT_EQ(data.displayName(row.code, row.edition, name), *row.name != '\0') << row.code;
        EXPECT_EQ(name, row.name);
        EXPECT_EQ(data.lastError, row.error);
    }
    CProductData data;
    data.DisplayNameTemplates["1k"] = "<build>, <Product Name>, <BUILD>";
    std::string name;
    EXPECT_TRUE(data.displayName("1k", "", name));
    EXPECT_EQ(name, "16.4.10002.0, Tavlink Serial Analyzer, 16.4.10002.0");
    EXPECT_FALSE(data.productName("", name));
    EXPECT_EQ(data.lastError, "No product id specified.");
}

TEST(CodeDirectory, NamesEveryCodeEverIssued) {
    const CProductData data;
    std::vector<std::string> names;
    std::string name;
    for (int number = 0; number < 1024; ++number) {
        if (findDirectoryName(number, name)) {
            const auto product = data.ProductNames.find(codeFromNumber(number));
            EXPECT_TRUE(product == data.ProductNames.end() || product->second == name);
            names.push_back(name);
        }
    }
    EXPECT_EQ(names.size(), 52u);
    EXPECT_TRUE(findDirectoryName("**", name));
    EXPECT_EQ(name, "All Products");
    EXPECT_FALSE(findDirectoryName("", name));
    EXPECT_EQ(name, "");
    EXPECT_FALSE(findDirectoryName("1M", name));
    EXPECT_EQ(data.ProductNames.at("1q"), protocolViewerName);

    // Older versions are found by a name within a display name: one product's must not find
    // another's.
    for (const std::string& inner : names) {
        EXPECT_FALSE(inner.starts_with("Halvick"));
        EXPECT_EQ(std::count_if(names.begin(), names.end(),
                                [&inner](const std::string& outer) {
                                    return outer.find(inner) != std::string::npos;
                                }),
                  1)
            << inner;
    }
}

}  // namespace
