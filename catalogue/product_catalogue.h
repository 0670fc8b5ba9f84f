#pragma once

#include <set>

#include "catalogue/product_data_file.h"

/// The product catalogue: everything that is known about the products without reading a file, and
/// the text of the product-data file, with its values, once that was loaded. Codes are compared
/// exactly; an empty code is never found. Lists within a value are separated by ";".
class CProductData {
  public:
    using TextMap = std::map<std::string, std::string, std::less<>>;
    using TextSet = std::set<std::string, std::less<>>;

    CProductData();
    virtual ~CProductData();
    CProductData& operator=(CProductData&&) = delete;  // nor is it copied

    /// False with lastError set for an empty code or one that is not a product of this installer.
    [[nodiscard]] bool productName(std::string_view code, std::string& name);
    [[nodiscard]] bool hasDemonstrationEdition(std::string_view code) const;
    /// False with an empty `demonstrationCode` when the product has none.
    [[nodiscard]] bool demonstrationCode(std::string_view code,
                                         std::string& demonstrationCode) const;
    [[nodiscard]] bool hasFileViewerEdition(std::string_view code) const;
    /// Ignores letter case.
    [[nodiscard]] bool hasProcessorSpecificSetups(std::string_view code) const;

    /// Keeps `text`, the product-data file's without its comments, and the path that it was loaded
    /// from; the values of an earlier text go.
    void keepProductData(std::string path, std::string text);

    /// The build being installed: the product-data file's, else the compiled-in one.
    [[nodiscard]] std::string buildVersion() const;
    /// The product's name, qualified by `edition` (may be empty), set into its display-name
    /// template. False for an empty code, silently, and for one without a name, with lastError.
    [[nodiscard]] bool displayName(std::string_view code, std::string_view edition,
                                   std::string& name);

    // For the product line, but for ProductNames, DemoOf, ViewerProducts, DisplayNameTemplates and
    // ProductDataValues.
    TextMap DecoderDescriptions;
    TextMap ProductNames;
    TextMap ProductIds;
    TextMap DemoOf;
    TextSet DemoProducts;
    TextSet ViewerProducts;
    TextMap DecoderCategories;
    TextMap FullProductOf;
    TextMap ProductGroups;
    TextMap RelatedProducts;
    TextMap ImportFormatNames;
    TextMap ImportFormatMedia;
    TextMap ImportFormatShortNames;
    TextMap ImportFormatFilters;
    TextMap ProductImportFormats;
    TextMap FieldbusTypes;
    TextMap ProductDecoders;
    TextMap DisplayNameTemplates;
    TextMap ProductConfigurations;

    /// The values of the version section, parts of productDataText.
    ValueParts ProductDataValues;
    /// Kept for the whole process once it is loaded; empty until then.
    std::string productDataText;
    std::string productDataPath;

    /// Why the last failing look-up failed.
    std::string lastError;
};
