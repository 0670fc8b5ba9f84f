#include "catalogue/product_data_loading.h"

#include <utility>

#include "platform/ansi_text.h"

namespace {

std::string ownFolder(Computer& computer) {
    const std::string program = computer.programPath();
    return program.empty() ? ".\\" : directoryOfProgram(program);
}

}  // namespace

bool loadProductDataText(CProductData& catalogue, Computer& computer, const std::string& folder,
                         std::string& path, std::string& error) {
    path.clear();
    if (!catalogue.productDataText.empty()) {
        path = catalogue.productDataPath;
        return true;
    }
    const std::string base = folder.empty() ? ownFolder(computer) : withTrailingBackslash(folder);
    for (const ProductDataName& name : productDataNames) {
        const std::string candidate = base + name.file;
        if (!computer.isListed(candidate)) {
            continue;
        }
        std::string text;
        if (!productDataText(computer.fileContent(candidate), name.enciphered, text, error)) {
            return false;
        }
        path = candidate;
        catalogue.keepProductData(candidate, std::move(text));
        return true;
    }
    error = "Cannot find product data.";
    return false;
}

bool loadProductValues(CProductData& catalogue, Computer& computer, std::string* path) {
    std::string loaded;
    if (!loadProductDataText(catalogue, computer, "", loaded, catalogue.lastError)) {
        return false;
    }
    if (path != nullptr) {
        *path = loaded;
    }
    return readVersionSection(catalogue.productDataText, catalogue.ProductDataValues);
}
