#include "catalogue/product_data_file.h"

#include <windows.h>

#include "catalogue/product_data_text.h"
#include "catalogue/program_directory.h"
#include "platform/ansi_text.h"
#include "platform/file_content.h"

namespace {

std::string ownFolder() {
    char path[1024] = {};
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    return length == 0 ? ".\\" : programDirectory({path, length});
}

bool exists(const std::string& path) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    FindClose(search);
    return true;
}

}  // namespace

bool ProductDataFile::loadText(const std::string& folder, std::string& path, std::string& error) {
    if (!text.empty()) {
        path = loadedPath;
        return true;
    }
    path.clear();
    const std::string base = folder.empty() ? ownFolder() : withTrailingBackslash(folder);
    for (const ProductDataName& name : productDataNames) {
        const std::string candidate = base + name.file;
        if (!exists(candidate)) {
            continue;
        }
        if (!productDataText(readFileContent(candidate), name.enciphered, text, error)) {
            return false;
        }
        path = loadedPath = candidate;
        return true;
    }
    error = "Cannot find product data.";
    return false;
}

bool ProductDataFile::loadProductValues(CProductData& catalogue, std::string* path) {
    std::string loaded;
    if (!loadText("", loaded, catalogue.lastError)) {
        return false;
    }
    if (path != nullptr) {
        *path = loaded;
    }
    return readVersionSection(text, catalogue.ProductDataValues);
}
