#include "desk/media/product_data.h"

#include <charconv>

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
        throw Refusal("\"" + file +
                      "\" has no section \"[Version Number]\", or nothing in it; add "
                      "the section with a line \"Version Number=\" and the build.");
    }
    const bool read = readVersionSection(kept, values);
    const auto value = values.find("Version Number");
    if (!read || value == values.end() || value->second.empty()) {
        throw Refusal("\"" + file +
                      "\" gives no \"Version Number\" in its section \"[Version "
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

std::optional<BuildNumbers> buildNumbers(std::string_view build) {
    BuildNumbers numbers{};
    const char* position = build.data();
    const char* const end = position + build.size();
    for (unsigned& number : numbers.parts) {
        if (&number != numbers.parts && (position == end || *position++ != '.')) {
            return std::nullopt;
        }
        const auto [next, failure] = std::from_chars(position, end, number);
        if (failure != std::errc() || number > 0xFFFF) {
            return std::nullopt;
        }
        position = next;
    }
    return position == end ? std::optional(numbers) : std::nullopt;
}

void requireBuildNumbers(const std::string& build) {
    if (!buildNumbers(build)) {
        throw Refusal("The build \"" + build +
                      "\" is not four numbers from 0 to 65535, such as 16.4.12000.0.");
    }
}
