#include "app/setup_parameters.h"

#include <iterator>
#include <tuple>
#include <utility>

#include "catalogue/product_traits.h"
#include "platform/ansi_text.h"
#include "platform/format_text.h"
#include "ui/product_type.h"

namespace {

std::string compose(std::initializer_list<std::pair<const char*, std::string>> fields) {
    constexpr std::size_t maximumLength = 2048;
    std::string parameters = "/hide_usd ";
    for (const auto& [name, value] : fields) {
        parameters.append(name).append("=").append(value).append("`");
    }
    return parameters.substr(0, maximumLength);
}

/// Of several bits the last choice's counts, of none the live product's.
const ProductChoice& choiceOf(unsigned productType) {
    for (std::size_t index = std::size(productChoices); index-- > 0;) {
        if ((productType & productChoices[index].type) != 0) {
            return productChoices[index];
        }
    }
    return productChoices[0];
}

/// The whole "-type" field.
std::string typeField(const SetupRequest& request, const char* bitness) {
    const ProductTraits& traits = traitsOf(request.productNumber);
    const ProductChoice& choice = choiceOf(request.productType);
    const bool live = choice.type == product_type::live;
    std::string field = choice.typeWord;
    if (live && !request.typeSuffix.empty()) {
        field += ' ' + request.typeSuffix;
    }
    if (traits.alwaysX86) {
        field += " x86";
    }
    if (live && traits.processorSpecificSetups) {
        field.append(" ").append(bitness);
    }
    return field;
}

/// Where the setup utility may put files of its own: the media, up to the last backslash.
std::string temporaryFolder(const std::string& sourceDirectory) {
    return sourceDirectory.substr(0, findLastBackslash(sourceDirectory) + 1);
}

}  // namespace

std::string setupParameters(const CProductData& catalogue, const SetupRequest& request,
                            const std::string& programFolder) {
    const bool x64 =
        request.on64BitWindows && catalogue.hasProcessorSpecificSetups(request.productCode);
    const char* const bitness = x64 ? "x64" : "x86";
    return compose({
        {"-build", catalogue.buildVersion()},
        {"-pid", request.productCode},
        {"-pf", programFolder},
        {"-type", typeField(request, bitness)},
        {"-bitness", bitness},
        {"-tmp", temporaryFolder(request.sourceDirectory)},
    });
}

std::string directSetupParameters(const CProductData& catalogue, const std::string& productCode,
                                  const std::string& sourceDirectory) {
    // The folder is the standards body's, whatever the product is called. No bitness: the viewer's
    // setup utility does not know the field.
    return compose({
        {"-build", catalogue.buildVersion()},
        {"-pid", productCode},
        {"-pf", "Bluetooth SIG"},
        {"-type", "LIVE"},
        {"-tmp", temporaryFolder(sourceDirectory)},
    });
}

std::string programFolderName(CProductData& catalogue, const SetupRequest& request) {
    std::string name;  // stays empty for a product without a name
    std::ignore =
        catalogue.displayName(request.productCode, choiceOf(request.productType).editionWord, name);
    return name;
}

std::string uniqueProgramFolder(const std::string& folderName, int productNumber,
                                InstallationIndex& index) {
    const char* const maker = traitsOf(productNumber).withoutMakerName ? "" : "Halvick ";
    std::string candidate = maker + folderName;
    std::vector<std::size_t> matches;
    for (int number = 2; index.find(candidate, installation_selector::programFolder, matches);
         ++number) {
        std::string next = composeCut({maker, folderName, formatText(" %d", number)});
        if (next == candidate) {
            break;
        }
        candidate = std::move(next);
    }
    return candidate;
}
