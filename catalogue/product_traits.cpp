#include "catalogue/product_traits.h"

#include "catalogue/product_code.h"
#include "platform/ansi_text.h"

namespace {

constexpr ProductTraits rows[] = {
    {.code = "07", .processorSpecificSetups = true},
    {.code = "1m", .processorSpecificSetups = true},
    {.code = "1q", .freeViewer = true},
    {.code = "1r", .withoutMakerName = true},
    {.code = "1s", .withoutMakerName = true},
    {.code = "1u", .alwaysX86 = true},
    {.code = "1w", .alwaysX86 = true, .replacesMakerProducts = true},
};
constexpr ProductTraits none;

}  // namespace

const ProductTraits& traitsOf(std::string_view productCode) {
    for (const ProductTraits& row : rows) {
        if (equalIgnoringCase(row.code, productCode)) {
            return row;
        }
    }
    return none;
}

const ProductTraits& traitsOf(int productNumber) {
    // A negative number is no product's, but its last digits would be the code of one.
    return productNumber < 0 ? none : traitsOf(codeFromNumber(productNumber));
}
