// The text of the product-data file: comments, sections, values. Every operation takes time in
// proportion to the text, whatever is in it.
#pragma once

#include <map>
#include <optional>
#include <string>

/// Texts by key, both parts of a longer text.
using ValueParts = std::map<std::string_view, std::string_view>;

/// Header of the only section that is read.
inline constexpr std::string_view versionSectionHeader = "[Version Number]";

/// The names that the file goes by, in the order in which they are looked for.
struct ProductDataName {
    const char* file;
    bool enciphered;
};
inline constexpr ProductDataName productDataNames[] = {
    {"ProductData.inx", true},
    {"ProductData.ini", false},
};

/// The text without comment lines, from the bytes of a file; nothing, for a file that could not be
/// read, fails too. False with `error` filled then and when the bytes cannot be deciphered.
[[nodiscard]] bool productDataText(std::optional<std::string> fileContent, bool enciphered,
                                   std::string& text, std::string& error);

/// The file's lines without those that begin with ";", joined by single line feeds. A carriage
/// return at the end of a line stays.
[[nodiscard]] std::string withoutComments(std::string fileContent);

/// The body behind `header` (letter case ignored) up to the next "[", trimmed, as a part of
/// `text`; false when it is missing or empty.
[[nodiscard]] bool extractSection(std::string_view text, std::string_view header,
                                  std::string_view& body);

/// Fills `values` (emptied first) with parts of `body`, from lines "key=value" that end in a
/// carriage return; the first of two equal keys wins. True when there is any.
[[nodiscard]] bool parseValues(std::string_view body, ValueParts& values);

/// Reads the version section into `values` as parts of `text`; `values` is left alone when there
/// is no such section. True when it yields a key.
[[nodiscard]] bool readVersionSection(std::string_view text, ValueParts& values);
