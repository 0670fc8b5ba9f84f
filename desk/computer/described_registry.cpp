#include "desk/computer/described_registry.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

/// The rank of a byte in the order of keys: the separator first, letters as capitals.
unsigned rank(char character) {
    if (character == '\\') {
        return 0;
    }
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x80) {  // by far the most, and compared often
        return byte >= 'a' && byte <= 'z' ? byte - ('a' - 'A') : byte;
    }
    return static_cast<unsigned char>(lowerCase(std::string_view(&character, 1))[0]);
}

/// A text into a buffer of `size` bytes, as Windows' calls do.
std::uint32_t giveText(const std::string& text, char* buffer, unsigned long& size) {
    if (text.size() >= size) {
        return errorMoreData;
    }
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    size = text.size();
    return errorSuccess;
}

std::uint32_t giveData(const std::string& bytes, char* buffer, unsigned long& size) {
    const bool fits = buffer == nullptr || bytes.size() <= size;
    size = bytes.size();
    if (fits && buffer != nullptr) {
        bytes.copy(buffer, bytes.size());
    }
    return fits ? errorSuccess : errorMoreData;
}

class DescribedKey : public KeyReader {
  public:
    DescribedKey(const DescribedRegistry& registry, std::string keyPath)
        : registry(registry), path(std::move(keyPath)), values(valueIn(registry.keys, path)) {
        if (const KeyFailures* const known = valueIn(registry.failures, path)) {
            failures = *known;
        }
        if (values != nullptr) {
            for (const auto& value : *values) {
                inOrder.push_back(&value);
            }
        }
        const std::size_t start = path.empty() ? 0 : path.size() + 1;
        for (auto key = registry.keys.upper_bound(path);
             key != registry.keys.end() && (path.empty() || isBelow(key->first, path));) {
            const std::size_t end = key->first.find('\\', start);
            subkeys.push_back(key->first.substr(start, end - start));
            // Behind all that is below it.
            key = registry.keys.lower_bound(key->first.substr(0, end) + '\x01');
        }
    }

    [[nodiscard]] std::uint32_t openSubkey(const char* name,
                                           std::unique_ptr<KeyReader>& subkey) const override {
        std::string wanted = path.empty() || *name == '\0' ? path + name : path + '\\' + name;
        wanted.erase(wanted.find_last_not_of('\\') + 1);
        auto opened = std::make_unique<DescribedKey>(registry, wanted);
        if (opened->failures.open != errorSuccess) {
            return opened->failures.open;
        }
        if (opened->values == nullptr && opened->subkeys.empty()) {
            return errorFileNotFound;
        }
        subkey = std::move(opened);
        return errorSuccess;
    }

    [[nodiscard]] std::uint32_t count(unsigned long& subkeyCount,
                                      unsigned long& valueCount) const override {
        subkeyCount = subkeys.size();
        valueCount = inOrder.size();
        return failures.count;
    }

    [[nodiscard]] std::uint32_t enumerateSubkey(unsigned long index, char* name,
                                                unsigned long& size) const override {
        const std::uint32_t reached = reach(index, subkeys.size());
        return reached == errorSuccess ? giveText(subkeys[index], name, size) : reached;
    }

    [[nodiscard]] std::uint32_t enumerateValue(unsigned long index, char* name,
                                               unsigned long& nameSize, char* data,
                                               unsigned long& dataSize) const override {
        if (const std::uint32_t reached = reach(index, inOrder.size()); reached != errorSuccess) {
            return reached;
        }
        const auto& [ownName, value] = *inOrder[index];
        const std::uint32_t named = giveText(ownName, name, nameSize);
        return named != errorSuccess ? named : giveData(value.data, data, dataSize);
    }

    [[nodiscard]] std::uint32_t queryValue(const char* name, unsigned long& type, char* data,
                                           unsigned long& size) const override {
        const RegistryValue* const value = values == nullptr ? nullptr : valueIn(*values, name);
        if (value == nullptr) {
            return errorFileNotFound;
        }
        type = value->type;
        return giveData(value->data, data, size);
    }

    [[nodiscard]] std::uint32_t lastError() const override { return registry.lastError; }

  private:
    /// Of an enumeration of so many.
    [[nodiscard]] std::uint32_t reach(unsigned long index, std::size_t total) const {
        const bool fails = failures.enumerate != errorSuccess && index >= failures.fromIndex;
        return fails ? failures.enumerate : index < total ? errorSuccess : errorNoMoreItems;
    }

    const DescribedRegistry& registry;
    const std::string path;
    const RegistryValues* const values;  ///< null: the key itself is not there
    std::vector<const RegistryValues::value_type*> inOrder;
    KeyFailures failures;
    std::vector<std::string> subkeys;  ///< their names, in the order of enumeration
};

}  // namespace

bool KeyPathOrder::operator()(std::string_view left, std::string_view right) const {
    return std::ranges::lexicographical_compare(left, right, {}, rank, rank);
}

bool isBelow(std::string_view path, std::string_view parent) {
    return path.size() > parent.size() + 1 && path[parent.size()] == '\\' &&
           equalIgnoringCase(path.substr(0, parent.size()), parent);
}

RegistryValue registryText(const std::string& text) {
    return {stringType, text + '\0'};
}

std::unique_ptr<KeyReader> describedLocalMachine(const DescribedRegistry& registry) {
    return std::make_unique<DescribedKey>(registry, "");
}
