#include "catalogue/product_data_file.h"

#include <windows.h>

#include <optional>

#include "catalogue/cipher.h"
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

/// The plain text of the file; nothing, with `reason` filled, when there is none to be had.
std::optional<std::string> readPlainText(const std::string& path, bool enciphered,
                                         std::string& reason) {
    std::optional<std::string> content = readFileContent(path);
    if (!content) {
        reason = "The file cannot be read.";
        return content;
    }
    std::string plain;
    if (enciphered) {
        if (!decipher(*content, plain, reason)) {
            return std::nullopt;
        }
        *content = std::move(plain);
    }
    return content;
}

}  // namespace

bool ProductDataFile::loadText(const std::string& folder, std::string& path, std::string& error) {
    if (!text.empty()) {
        path = loadedPath;
        return true;
    }
    path.clear();
    const std::string base = folder.empty() ? ownFolder() : withTrailingBackslash(folder);
    std::string candidate = base + "ProductData.inx";
    const bool enciphered = exists(candidate);
    if (!enciphered) {
        candidate = base + "ProductData.ini";
        if (!exists(candidate)) {
            error = "Cannot find product data.";
            return false;
        }
    }
    std::string reason;
    std::optional<std::string> plain = readPlainText(candidate, enciphered, reason);
    if (!plain) {
        error = "Cannot load product data - " + reason;
        return false;
    }
    text = withoutComments(std::move(*plain));
    path = loadedPath = candidate;
    return true;
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
