#include "catalogue/product_data_file.h"

#include <algorithm>
#include <cstring>

#include "catalogue/cipher.h"
#include "platform/ansi_text.h"

namespace {

constexpr std::string_view blanks = "\r\n\t ";

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

}  // namespace

bool productDataText(std::optional<std::string> fileContent, bool enciphered, std::string& text,
                     std::string& error) {
    std::string reason = "The file cannot be read.";
    std::string plain;
    if (!fileContent || (enciphered && !decipher(*fileContent, plain, reason))) {
        error = "Cannot load product data - " + reason;
        return false;
    }
    text = withoutComments(std::move(enciphered ? plain : *fileContent));
    return true;
}

std::string withoutComments(std::string fileContent) {
    std::size_t kept = 0;
    for (std::size_t start = 0; start < fileContent.size();) {
        const std::size_t end = std::min(fileContent.find('\n', start), fileContent.size());
        const std::size_t next = std::min(end + 1, fileContent.size());
        if (fileContent[start] != ';') {
            std::memmove(&fileContent[kept], &fileContent[start], next - start);
            kept += next - start;
        }
        start = next;
    }
    // The line feeds stand between lines, none behind the last.
    if (kept > 0 && fileContent[kept - 1] == '\n') {
        --kept;
    }
    fileContent.resize(kept);
    return fileContent;
}

bool extractSection(std::string_view text, std::string_view header, std::string_view& body) {
    body = {};
    const std::size_t found = lowerCase(text).find(lowerCase(header));
    if (found == std::string::npos) {
        return false;
    }
    body = withoutLeadingBlanks(text.substr(found + header.size()));
    // Kept: a "[" within a value ends the section too.
    body = body.substr(0, body.find('['));
    body = body.substr(0, body.find_last_not_of(blanks) + 1);
    return !body.empty();
}

bool parseValues(std::string_view body, ValueParts& values) {
    values.clear();
    body = withoutLeadingBlanks(body);
    const std::size_t lastReturn = body.rfind('\r');
    const char* const noReturnFrom =
        lastReturn == std::string_view::npos ? body.data() : body.data() + lastReturn + 1;
    for (std::size_t equals; (equals = body.find('=')) != std::string_view::npos;) {
        const std::string_view key = body.substr(0, equals);
        const std::string_view rest = body.substr(equals + 1);
        if (rest.data() < noReturnFrom) {
            const std::size_t end = rest.find('\r');
            values.try_emplace(key, rest.substr(0, end));
            body = withoutLeadingBlanks(rest.substr(end + 1));
        } else {
            // Kept: without a carriage return the value runs to the end, and what it holds is
            // read once more as keys and values.
            values.try_emplace(key, rest);
            body = rest;
        }
    }
    return !values.empty();
}

bool readVersionSection(std::string_view text, ValueParts& values) {
    std::string_view body;
    return extractSection(text, versionSectionHeader, body) && parseValues(body, values);
}
