#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

/// The product catalogue: everything that is known about the products without reading a file, and
/// the values of the product-data file once they were read. Codes are compared exactly; an empty
/// code is never found. Lists within a value are separated by ";".
class CProductData {
  public:
    using TextMap = std::map<std::string, std::string, std::less<>>;
    using ValueMap = std::map<std::string_view, std::string_view>;
    using TextSet = std::set<std::string, std::less<>>;

    CProductData();
    virtual ~CProductData();

    /// False with lastError set for an empty code or one that is not a product of this installer.
    bool productName(std::string_view code, std::string& name);
    bool hasDemonstrationEdition(std::string_view code) const;
    /// False with an empty `demonstrationCode` when the product has none.
    bool demonstrationCode(std::string_view code, std::string& demonstrationCode) const;
    bool hasFileViewerEdition(std::string_view code) const;
    /// Ignores letter case.
    bool hasProcessorSpecificSetups(std::string_view code) const;

    /// The build being installed: the product-data file's, else the compiled-in one.
    std::string buildVersion() const;
    /// The product's name, qualified by `edition` (may be empty), set into its display-name
    /// template. False for an empty code, silently, and for one without a name, with lastError.
    bool displayName(std::string_view code, std::string_view edition, std::string& name);

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

    /// Parts of the text that the ProductDataFile keeps, which outlives them.
    ValueMap ProductDataValues;

    /// Why the last failing look-up failed.
    std::string lastError;
};

/// The build of the installer's own release.
inline constexpr const char* compiledInBuild = "16.4.10002.0";
