#include "catalogue/contact_text.h"

#include "catalogue/product_code.h"
#include "catalogue/product_traits.h"

namespace {

// The standards body answers for the free viewer, the maker does not.
constexpr const char* protocolViewerContact =
    "For technical support please go to:\n"
    "\n"
    "https://issues.protocol-viewer.example/";

}  // namespace

std::string contactText(std::string_view code, ContactLayout layout) {
    const int number = numberFromCode(code);
    if (number < 0) {
        return {};
    }
    if (traitsOf(number).freeViewer) {
        return protocolViewerContact;
    }
    if (layout == ContactLayout::Lines) {
        return "Halvick Test Equipment\n"
               "Technical Support\n"
               "100 Instrument Way\n"
               "Halvick, VA 22999\n"
               "USA\n"

               "Web: https://www.halvick.example/\n"
               "E-mail: support@halvick.example\n"

               "Telephone: +1 434 555 0100\n"
               "Fax: +1 434 555 0101\n";
    }
    return "Halvick Test Equipment\tTelephone: +1 434 555 0100\n"
           "100 Instrument Way\tFax: +1 434 555 0101\n"
           "Halvick, VA 22999\tE-mail: support@halvick.example\n"
           "USA\tWeb: https://www.halvick.example/\n";
}
