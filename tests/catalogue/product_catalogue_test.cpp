#include "catalogue/product_catalogue.h"

#include "catalogue/cipher.h"
#include "tests/rows.h"

namespace {

/// One line KEY=VALUE for each row in ascending order of the keys.
std::string linesOf(const CProductData::TextMap& map) {
    std::string lines;
    for (const auto& [key, value] : map) {
        lines.append(key).append("=").append(value).append("\n");
    }
    return lines;
}

/// For what has names and descriptions that are free.
std::string codesOf(const CProductData::TextMap& map) {
    CProductData::TextMap codes;
    for (const auto& row : map) {
        codes[row.first];
    }
    return linesOf(codes);
}

std::string codesOf(const CProductData::TextSet& set) {
    std::string lines;
    for (const std::string& code : set) {
        lines.append(code).append("=\n");
    }
    return lines;
}

}  // namespace

// The catalogue is the product line's, not the program's: the sums were made from the product
// line's own lists.
TEST(ProductCatalogue, HoldsTheProductLinesRows) {
    const CProductData data;
    const struct {
        const char* list;
        std::string lines;
        std::uint32_t checksum;
    } rows[] = {
        {"codes of decoders", codesOf(data.DecoderDescriptions), 0x48D8D100},
        {"codes of products", codesOf(data.ProductNames), 0xC0E02C4A},
        {"demonstrations of products", linesOf(data.DemoOf), 0x1419C109},
        {"codes of demonstrations", codesOf(data.DemoProducts), 0xE40DF20E},
        {"codes with a file viewer", codesOf(data.ViewerProducts), 0x85165DED},
        {"categories of decoders", linesOf(data.DecoderCategories), 0x5164A568},
        {"full products of demonstrations", linesOf(data.FullProductOf), 0xBF9889D3},
        {"groups of products", linesOf(data.ProductGroups), 0xECA1C7FB},
        {"related products", linesOf(data.RelatedProducts), 0x9396157B},
        {"names of import formats", linesOf(data.ImportFormatNames), 0x1527204E},
        {"media of import formats", linesOf(data.ImportFormatMedia), 0x88E20077},
        {"short names of import formats", linesOf(data.ImportFormatShortNames), 0x261EE259},
        {"filters of import formats", linesOf(data.ImportFormatFilters), 0x139F718E},
        {"import formats of products", linesOf(data.ProductImportFormats), 0x252EB33C},
        {"fieldbus types", linesOf(data.FieldbusTypes), 0x9011A2C7},
        {"decoders of products", linesOf(data.ProductDecoders), 0x7CD635DD},
        {"templates of display names", linesOf(data.DisplayNameTemplates), 0xF5AE9666},
        {"configurations of products", linesOf(data.ProductConfigurations), 0x3BC3ED5B},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(cipher::checksum(row.lines), row.checksum)
            << "not the product line's " << row.list << ":\n"
            << row.lines;
    }
    EXPECT_EQ(data.ProductIds.size(), 23u);
    for (const auto& [product, code] : data.ProductIds) {
        EXPECT_EQ(data.ProductNames.at(code), product);
    }
    for (const auto& [code, description] : data.DecoderDescriptions) {
        EXPECT_EQ(description.find("-" + code + " (") != std::string::npos ||
                      description.ends_with(" - " + code),
                  code != "**")
            << description;
    }
}

TEST(ProductCatalogue, KnowsTheEditionsOfAProduct) {
    expectRows<std::string, std::string>(
        {{"04", "demo 0h, viewer"},
         {"07", "demo 0u, viewer, for each processor"},
         {"1M", ", for each processor"},  // the others go by the exact code
         {"0g", ""},
         {"1c", ", viewer"},
         {"", ""}},
        [data = CProductData()](const std::string& code) {
            std::string demonstration = "old";
            const bool found = data.demonstrationCode(code, demonstration);
            EXPECT_EQ(found, data.hasDemonstrationEdition(code));
            EXPECT_EQ(found, !demonstration.empty());
            return (found ? "demo " + demonstration : "") +
                   (data.hasFileViewerEdition(code) ? ", viewer" : "") +
                   (data.hasProcessorSpecificSetups(code) ? ", for each processor" : "");
        });
}

TEST(ProductCatalogue, SetsNameEditionAndBuildIntoTheDisplayName) {
    CProductData data;
    const std::string serial = data.ProductNames["1k"], demo = data.ProductNames["0g"];
    const auto displayName = [&data](const std::string& code, const std::string& edition,
                                     const std::string& build) {
        data.ProductDataValues["Version Number"] = build;
        data.lastError.clear();
        std::string name = "old";
        const bool named = data.displayName(code, edition, name);
        EXPECT_EQ(named, !name.empty());
        return name + data.lastError;
    };
    using Given = std::tuple<std::string, std::string, std::string>;
    expectRows<Given, std::string>(
        {{{"1k", "Viewer", "16.4.12000.0"}, serial + " Viewer 16.4.12000.0"},
         {{"1k", "", ""}, serial + " 16.4.10002.0"},
         {{"0g", "Demo", "1.2"}, demo + " 1.2"},
         {{"0g", "demo", "1.2"}, demo + " demo 1.2"},
         {{"1w", "Viewer", "1.2"}, "1.2"},
         {{"0q", "Viewer", "1.2"}, data.ProductNames["0q"] + " Viewer"},
         {{"19", "Demo", "1.2"}, "No product with id \"19\" is supported."},
         {{"1M", "", "1.2"}, "No product with id \"1M\" is supported."},
         {{"", "Demo", "1.2"}, ""}},
        displayName);
    data.DisplayNameTemplates["1k"] = "<build>, <Product Name>, <BUILD>";
    EXPECT_EQ(displayName("1k", "", "1"), "1, " + serial + ", 1");
    std::string name;
    EXPECT_FALSE(data.productName("", name));
    EXPECT_EQ(data.lastError, "No product id specified.");
    data.keepProductData("", "");
    EXPECT_EQ(displayName("0g", "", ""), demo + ' ' + compiledInBuild);
}
