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

std::vector<std::string> uninstallCommands(const std::vector<std::string>& tickedNames,
                                           const std::vector<InstalledProduct>& products) {
    std::vector<std::string> commands;
    for (const std::string& name : tickedNames) {
        for (const InstalledProduct& product : products) {
            if (product.displayName == name) {
                commands.push_back(product.uninstallString);
            }
        }
    }
    return commands;
}
