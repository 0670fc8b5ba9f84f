#include "desk/computer/registry_export.h"

#include <algorithm>
#include <charconv>
#include <sstream>

#include "desk/western_text.h"
#include "platform/ansi_text.h"

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

std::string_view trimmed(std::string_view text) {
    const std::size_t start = std::min(text.find_first_not_of(" \t"), text.size());
    return text.substr(start, text.find_last_not_of(" \t") + 1 - start);
}

/// False when the text is anything else than a number that fits.
template <class Number>
bool readHexadecimal(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, 16);
    return error == std::errc() && stop == end;
}

/// Bytes with commas between them, of which one may stand at the end.
bool readBytes(std::string_view list, std::string& bytes) {
    std::istringstream items{std::string(trimmed(list))};
    for (std::string item; std::getline(items, item, ',');) {
        std::uint8_t byte = 0;
        if (!readHexadecimal(trimmed(item), byte)) {
            return false;
        }
        bytes += static_cast<char>(byte);
    }
    return true;
}

/// Reads keys and values, each from the beginning of its line into the last line that belongs to
/// it.
class Reader {
  public:
    Reader(std::string_view text, RegistryKeys& keys, std::vector<std::string>& problems)
        : text(text), rest(text), keys(keys), problems(problems) {}

    void readAll() {
        takeLine();  // the header
        for (; !rest.empty(); takeLine()) {
            const std::string_view before = text.substr(0, text.size() - rest.size());
            const bool isValue = rest.front() == '"' || rest.front() == '@';
            if (!(isValue ? readValue() : readKey()) && problems.size() < mostProblems) {
                const auto number = std::count(before.begin(), before.end(), '\n') + 1;
                problems.push_back("line " + std::to_string(number) + " is not understood");
            }
        }
    }

  private:
    /// The rest of the line, without its end.
    [[nodiscard]] std::string_view line() const {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        return line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0));
    }

    void takeLine() { rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1); }

    /// Blank lines and comments too.
    bool readKey() {
        std::string_view path = line().substr(0, line().find_last_not_of(" \t") + 1);
        if (path.empty() || path.front() == ';') {
            return true;
        }
        values = &others;
        if (!path.starts_with('[') || !path.ends_with(']') || path.size() > longestPath) {
            return false;
        }
        path = path.substr(1, path.size() - 2);
        const bool removes = path.starts_with('-');
        path.remove_prefix(removes ? 1 : 0);
        if (path.size() <= localMachine.size() ||
            !equalIgnoringCase(path.substr(0, localMachine.size()), localMachine)) {
            return true;  // a key of another root
        }
        path.remove_prefix(localMachine.size());
        if (!removes) {
            values = &keys[std::string(path)];
            return true;
        }
        const auto first = keys.lower_bound(path);
        keys.erase(first, std::find_if(first, keys.end(), [path](const auto& key) {
                       return !equalIgnoringCase(key.first, path) && !isBelow(key.first, path);
                   }));
        return true;
    }

    /// Texts in quotes and lists of bytes go over several lines.
    bool readValue() {
        std::string name;
        RegistryValue value;
        if ((!take('@') && !takeQuoted(name)) || !take('=')) {
            return false;
        }
        if (rest.starts_with('"')) {
            std::string content;
            if (!takeQuoted(content)) {
                return false;
            }
            value = registryText(content);
        } else {
            std::string data(line());
            while (data.ends_with('\\') && rest.find('\n') < rest.size() - 1) {
                takeLine();
                data.pop_back();
                data += line();
            }
            if (data == "-") {
                values->erase(name);
                return true;
            }
            if (!readData(data, value)) {
                return false;
            }
        }
        (*values)[name] = std::move(value);
        return true;
    }

    bool take(char character) {
        const bool isThere = rest.starts_with(character);
        rest.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    /// A text in quotes at the front of the rest, and what it stands for. False, with nothing
    /// taken, when it does not end.
    bool takeQuoted(std::string& content) {
        for (std::size_t index = 1; index < rest.size(); ++index) {
            if (rest[index] == '"') {
                rest.remove_prefix(index + 1);
                return true;
            }
            if (rest[index] == '\\' && index + 1 < rest.size()) {
                ++index;
            }
            content += rest[index];
        }
        return false;
    }

    /// "dword:", "hex:" or "hex(type):" and what follows.
    bool readData(std::string_view data, RegistryValue& value) const {
        const std::size_t colon = data.find(':');
        if (colon == std::string_view::npos) {
            return false;
        }
        const std::string_view type = data.substr(0, colon);
        data.remove_prefix(colon + 1);
        if (type == "dword") {
            std::uint32_t number = 0;
            value.type = numberType;
            const bool isRead = readHexadecimal(data, number);
            for (int shift = 0; shift < 32; shift += 8) {
                value.data += static_cast<char>(number >> shift);
            }
            return isRead;
        }
        value.type = binaryType;
        const bool isTyped = type.starts_with("hex(") && type.ends_with(')');
        if (isTyped ? !readHexadecimal(type.substr(4, type.size() - 5), value.type)
                    : type != "hex") {
            return false;
        }
        const bool isRead = readBytes(data, value.data);
        const bool isText = isStringType(value.type) || value.type == textsType;
        if (isText && !text.starts_with(olderHeader)) {
            value.data = fromUtf16(value.data);
        }
        return isRead;
    }

    const std::string_view text;
    std::string_view rest;
    RegistryKeys& keys;
    std::vector<std::string>& problems;
    RegistryValues others;             ///< of all that is passed over
    RegistryValues* values = &others;  ///< of the current key
};

}  // namespace

bool isRegistryExport(std::string_view content) {
    const std::string start = decoded(content.substr(0, 100));
    return start.starts_with(olderHeader) || start.starts_with(header);
}

void readRegistryExport(std::string_view content, RegistryKeys& keys,
                        std::vector<std::string>& problems) {
    Reader(decoded(content), keys, problems).readAll();
}
