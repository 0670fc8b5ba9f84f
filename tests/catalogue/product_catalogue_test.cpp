#include "catalogue/product_catalogue.h"

#include "catalogue/build_number.h"
#include "catalogue/code_directory.h"
#include "platform/version_number.h"
#include "tests/rows.h"

TEST(ProductCatalogue, ListsNameNothingThatIsNotThere) {
    const CProductData data;
    std::string name;
    const auto isKnown = [&](const std::string& word) {
        return findDirectoryName(word, name) || data.ProductGroups.contains(word) ||
               data.DecoderDescriptions.contains(word) ||
               data.ImportFormatNames.contains(word.substr(0, word.find('_')));
    };
    std::vector<std::string> words;
    for (const auto* list :
         {&data.DemoOf, &data.FullProductOf, &data.ProductGroups, &data.RelatedProducts,
          &data.ProductDecoders, &data.ProductImportFormats}) {
        for (const auto& [key, text] : *list) {
            splitFields(key + ';' + text, words, ';');
            EXPECT_GT(words.size(), 1u) << key;
            for (const std::string& word : words) {
                EXPECT_TRUE(isKnown(word)) << word << " in the row of " << key;
            }
        }
    }
    for (const auto& [code, demonstration] : data.DemoOf) {
        EXPECT_EQ(data.FullProductOf.at(demonstration), code);
    }
    for (const auto& [code, product] : data.ProductNames) {
        EXPECT_EQ(data.ProductIds.at(product), code);
    }
    for (const std::string& code : data.ViewerProducts) {
        EXPECT_TRUE(data.DisplayNameTemplates.contains(code)) << code;
    }
    for (const auto& [code, description] : data.DecoderDescriptions) {
        EXPECT_EQ(description.find("-" + code + " (") != std::string::npos ||
                      description.ends_with(" - " + code),
                  code != "**")
            << description;
    }
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
         {{"0g", "demo", "1.2"}, demo + " demo 1.2"},
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
    EXPECT_EQ(displayName("0g", "", ""), demo + " " INSTALLER_BUILD_TEXT);
}
