#include "catalogue/code_directory.h"

#include <span>

#include "catalogue/product_code.h"
#include "catalogue/product_names.h"

namespace {

/// Codes of retired and partner products, and the one that stands for all.
constexpr TextRow furtherNames[] = {
    {"**", "All Products"},
    {"01", "Tavlink Async Analyzer"},
    {"02", "Tavlink Async Plus"},
    {"09", "Tavlink Parallel Analyzer"},
    {"0a", "Tavlink ISDN Analyzer"},
    {"0d", "Tavlink Async Portable"},
    {"0k", "Tavlink Frame Relay Analyzer"},
    {"0m", "Tavlink X.25 Analyzer"},
    {"0n", "Partner Async Analyzer"},
    {"0p", "Tavlink Async Basic"},
    {"0r", "Tavlink Token Ring Analyzer"},
    {"0s", "Tavlink Async Demo"},
    {"0t", "Tavlink CAN Analyzer"},
    {"0v", "Tavlink Bluetooth Basic"},
    {"0w", "Tavlink Process Analyzer"},
    {"0x", "Tavlink HDLC Analyzer"},
    {"0y", "Tavlink Fieldbus Analyzer"},
    {"0z", "Partner Serial Viewer"},
    {"10", "Partner Serial Analyzer"},
    {"11", "Partner Serial Plus"},
    {"12", "Tavlink Modem Analyzer"},
    {"13", "Partner Ethernet Analyzer"},
    {"14", "Partner Universal Analyzer"},
    {"15", "Tavlink Industrial Serial"},
    {"18", "Partner Ethernet Plus"},
    {"19", "Partner Bluetooth Analyzer"},
    {"1a", "Tavlink Industrial Ethernet"},
    {"1f", "Partner Serial Demo"},
    {"1g", "Partner Ethernet Demo"},
    {"1n", "Partner Async Plus"},
};

}  // namespace

bool findDirectoryName(std::string_view code, std::string& name) {
    name.clear();
    for (const auto rows : {std::span<const TextRow>(productNames), {furtherNames}}) {
        for (const TextRow& row : rows) {
            if (code == row.key) {
                name = row.value;
                return true;
            }
        }
    }
    return false;
}

bool findDirectoryName(int productNumber, std::string& name) {
    // A negative number is no product's, but its last digits would be the code of one.
    return findDirectoryName(productNumber < 0 ? std::string() : codeFromNumber(productNumber),
                             name);
}
