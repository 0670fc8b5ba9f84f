#include "ui/ask_uninstall_dialog.h"

UninstallPromptTexts uninstallPromptTexts(std::size_t productCount) {
    if (productCount == 1) {
        return {
            "We found the following version of the Tavlink Protocol Analysis System software "
            "on your computer:",
            "Would you like to uninstall it?"};
    }
    return {
        "We found the following versions of the Tavlink Protocol Analysis System software on "
        "your computer:",
        "Would you like to uninstall them?"};
}

ListColumnWidths listColumnWidths(int dotsPerInch) {
    constexpr int unscaled = 96;
    const int scale = dotsPerInch > 0 ? dotsPerInch : unscaled;
    return {20 * scale / unscaled, 400 * scale / unscaled};
}

int compareLowerCaseNames(const std::string& left, const std::string& right, long order) {
    return order == ascendingOrder ? left.compare(right) : 0;
}
