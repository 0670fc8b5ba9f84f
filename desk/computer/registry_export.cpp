#include "desk/computer/registry_export.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "desk/western_text.h"
#include "platform/ansi_text.h"
#include "platform/registry_key.h"

namespace {

constexpr std::string_view olderHeader = "REGEDIT4";
constexpr std::string_view header = "Windows Registry Editor Version 5.00";
constexpr std::string_view localMachine = "HKEY_LOCAL_MACHINE\\";

constexpr std::size_t longestPath = 16384;
constexpr std::size_t mostProblems = 20;

/// The text of the file in the ANSI code page.
std::string decoded(std::string_view content) {
    if (content.starts_with("\xFF\xFE")) {
        return fromUtf16(content.substr(2));
    }
    if (content.starts_with("\xEF\xBB\xBF")) {
        return fromUtf8(content.substr(3));
    }
    return std::string(content);
}

class Reader {
  public:
    Reader(std::string_view text, bool wide, RegistryKeys& keys, std::vector<std::string>& problems)
        : rest(text), wideData(wide), keys(keys), problems(problems) {}

    void readAll() {
        takeLine();  // the header
        while (!rest.empty()) {
            readLine();
        }
    }

  private:
    std::string_view takeLine() {
        ++lineNumber;
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        return line;
    }

    void readLine() {
        const std::size_t number = lineNumber + 1;
        const bool understood =
            rest.front() == '"' || rest.front() == '@' ? readValue() : readKey();
        if (!understood && problems.size() < mostProblems) {
            problems.push_back("line " + std::to_string(number) + " is not understood");
        }
    }

    /// A key's line; blank lines and comments too.
    bool readKey() {
        std::string_view line = takeLine();
        while (line.ends_with(' ') || line.ends_with('\t')) {
            line.remove_suffix(1);
        }
        if (line.empty() || line.front() == ';') {
            return true;
        }
        values = nullptr;
        if (!line.starts_with('[') || !line.ends_with(']') || line.size() > longestPath) {
            return false;
        }
        line = line.substr(1, line.size() - 2);
        const bool removes = line.starts_with('-');
        line.remove_prefix(removes ? 1 : 0);
        if (line.size() <= localMachine.size() ||
            !equalIgnoringCase(line.substr(0, localMachine.size()), localMachine)) {
            return true;  // a key of another root
        }
        const std::string path(line.substr(localMachine.size()));
        if (removes) {
            const auto first = keys.lower_bound(path);
            auto last = first;
            while (last != keys.end() &&
                   (equalIgnoringCase(last->first, path) || isBelow(last->first, path))) {
                ++last;
            }
            keys.erase(first, last);
        } else {
            values = &keys[path];
        }
        return true;
    }

    /// A value's lines. Texts in quotes and lists of bytes go over several.
    bool readValue() {
        std::string name;
        if (rest.front() == '@') {
            rest.remove_prefix(1);
        } else if (!takeQuoted(name)) {
            return false;
        }
        if (!rest.starts_with('=')) {
            takeLine();
            return false;
        }
        rest.remove_prefix(1);
        if (rest.starts_with('"')) {
            std::string text;
            const bool whole = takeQuoted(text);
            takeLine();
            if (whole) {
                keep(registryText(name, text));
            }
            return whole;
        }
        std::string data(takeLine());
        while (data.ends_with('\\') && !rest.empty()) {
            data.pop_back();
            data += takeLine();
        }
        if (data == "-") {
            if (values != nullptr) {
                values->remove(name);
            }
            return true;
        }
        std::optional<RegistryValue> value = valueOf(std::move(name), data);
        if (value) {
            keep(std::move(*value));
        }
        return value.has_value();
    }

    void keep(RegistryValue value) {
        if (values != nullptr) {
            values->set(std::move(value));
        }
    }

    /// A text in quotes at the front of the rest, and what it stands for. False, with the line
    /// taken, when it does not end.
    bool takeQuoted(std::string& text) {
        for (std::size_t index = 1; index < rest.size(); ++index) {
            if (rest[index] == '"') {
                lineNumber += static_cast<std::size_t>(std::count(
                    rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(index), '\n'));
                rest.remove_prefix(index + 1);
                return true;
            }
            if (rest[index] == '\\' && index + 1 < rest.size()) {
                ++index;
            }
            text += rest[index];
        }
        text.clear();
        takeLine();
        return false;
    }

    [[nodiscard]] std::optional<RegistryValue> valueOf(std::string name,
                                                       std::string_view data) const {
        RegistryValue value{std::move(name), registryTypeBinary, ""};
        if (data.starts_with("dword:")) {
            std::uint32_t number = 0;
            const char* const end = data.data() + data.size();
            const auto [stop, error] = std::from_chars(data.data() + 6, end, number, 16);
            if (error != std::errc() || stop != end) {
                return std::nullopt;
            }
            value.type = registryTypeNumber;
            for (int shift = 0; shift < 32; shift += 8) {
                value.data += static_cast<char>(number >> shift);
            }
            return value;
        }
        const std::size_t colon = data.find(':');
        if (!data.starts_with("hex") || colon == std::string_view::npos) {
            return std::nullopt;
        }
        if (colon != 3) {
            const std::string_view type = data.substr(3, colon - 3);
            const char* const end = type.data() + type.size() - 1;
            if (type.size() < 3 || type.front() != '(' || type.back() != ')') {
                return std::nullopt;
            }
            const auto [stop, error] = std::from_chars(type.data() + 1, end, value.type, 16);
            if (error != std::errc() || stop != end) {
                return std::nullopt;
            }
        }
        if (!readBytes(data.substr(colon + 1), value.data)) {
            return std::nullopt;
        }
        if (wideData && (isStringType(value.type) || value.type == registryTypeTexts)) {
            value.data = fromUtf16(value.data);
        }
        return value;
    }

    static bool readBytes(std::string_view list, std::string& bytes) {
        const char* position = list.data();
        const char* const end = position + list.size();
        const auto skipBlanks = [&] {
            while (position != end && (*position == ' ' || *position == '\t')) {
                ++position;
            }
        };
        for (skipBlanks(); position != end; skipBlanks()) {
            std::uint8_t byte = 0;
            const auto [stop, error] = std::from_chars(position, end, byte, 16);
            if (error != std::errc()) {
                return false;
            }
            bytes += static_cast<char>(byte);
            position = stop;
            skipBlanks();
            if (position != end && *position++ != ',') {
                return false;
            }
        }
        return true;
    }

    std::string_view rest;
    const bool wideData;  ///< bytes of texts are UTF-16
    RegistryKeys& keys;
    std::vector<std::string>& problems;
    RegistryValues* values = nullptr;  ///< of the current key; null: passed over
    std::size_t lineNumber = 0;        ///< of the line taken last
};

}  // namespace

bool isRegistryExport(std::string_view content) {
    const std::string start = decoded(content.substr(0, 100));
    return start.starts_with(olderHeader) || start.starts_with(header);
}

void readRegistryExport(std::string_view content, RegistryKeys& keys,
                        std::vector<std::string>& problems) {
    const std::string text = decoded(content);
    Reader(text, !text.starts_with(olderHeader), keys, problems).readAll();
}
