#include "catalogue/product_data_file_win.h"

#include <utility>

#include "catalogue/product_data_file.h"
#include "platform/ansi_text.h"
#include "platform/files_win.h"

namespace {

std::string ownFolder() {
    const std::string program = runningProgramPath();
    return program.empty() ? ".\\" : directoryOfProgram(program);
}

}  // namespace

bool loadProductDataText(CProductData& catalogue, const std::string& folder, std::string& path,
                         std::string& error) {
    path = catalogue.productDataPath;
    if (!catalogue.productDataText.empty()) {
        return true;
    }
    const std::string base = folder.empty() ? ownFolder() : withTrailingBackslash(folder);
    for (const ProductDataName& name : productDataNames) {
        const std::string candidate = base + name.file;
        if (!isListed(candidate)) {
            continue;
        }
        std::string text;
        if (!productDataText(readFileContent(candidate), name.enciphered, text, error)) {
            return false;
        }
        path = candidate;
        catalogue.keepProductData(candidate, std::move(text));
        return true;
    }
    error = "Cannot find product data.";
    return false;
}

bool loadProductValues(CProductData& catalogue, std::string* path) {
    std::string loaded;
    if (!loadProductDataText(catalogue, "", loaded, catalogue.lastError)) {
        return false;
    }
    if (path != nullptr) {
        *path = loaded;
    }
    return catalogue.readBuildSection();
}
