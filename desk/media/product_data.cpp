#include "desk/media/product_data.h"

#include "catalogue/product_data_file.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

bool endLinesAsWindowsDoes(std::string& text) {
    std::string result = replaceAll(replaceAll(text, "\r\n", "\n", false), "\n", "\r\n", false);
    std::swap(result, text);
    return result != text;
}

std::string buildIn(std::string_view text, const std::string& file) {
    const std::string kept = withoutComments(std::string(text));
    ValueParts values;
    std::string_view body;
    if (!extractSection(kept, versionSectionHeader, body)) {
        throw Refusal(inQuotes(file) +
                      " has no section \"[Version Number]\", or nothing in it; add "
                      "the section with a line \"Version Number=\" and the build.");
    }
    const bool read = readVersionSection(kept, values);
    const auto value = values.find("Version Number");
    if (!read || value == values.end() || value->second.empty()) {
        throw Refusal(inQuotes(file) +
                      " gives no \"Version Number\" in its section \"[Version "
                      "Number]\"; add a line \"Version Number=\" with the build.");
    }
    return std::string(value->second);
}

std::string buildFault(std::string_view build) {
    for (const char character : build) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < ' ' ||
            std::string_view("`\\/:*?\"<>|").find(character) != std::string_view::npos) {
            return "The build \"" + toUtf8(build) + "\" holds " +
                   (byte < ' ' ? "a control character" : std::string("\"") + character + '"') +
                   ", which would break what \"Setup.Exe\" is handed; give a build such as "
                   "16.4.12000.0.";
        }
    }
    return "";
}

std::string productDataOf(std::string_view build) {
    return std::string(versionSectionHeader) + "\r\nVersion Number=" + std::string(build) + "\r\n";
}
