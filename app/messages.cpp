#include "app/messages.h"

#include "catalogue/contact_text.h"
#include "platform/format_text.h"

std::string installTitle(const std::string& productName, const std::string& buildVersion) {
    return composeCut({productName, " ", buildVersion, " Installation"});
}

Message driversFailedMessage(const std::string& productName, const std::string& error) {
    return {"Device drivers for " + productName + " were not found and extraction failed:\n\n" +
            error};
}

Message invalidInstallerMessage(std::string_view productCode) {
    return {"This installer is invalid. Please contact Technical Support.\n\n" +
            contactText(productCode, contact_layout::lines)};
}

Message setupMissingMessage(const std::string& setupPath) {
    return {.text = "Failed to locate program installation utility: \"" + setupPath + '"',
            .icon = MessageIcon::Error,
            .owner = MessageOwner::None};
}

Message couldNotStopMessage(const InstalledProduct& product, std::uint32_t code) {
    // Signed: WAIT_FAILED reads -1.
    return {
        formatText("Could not stop \"%s\" - %d. Please close all copies of %s and restart the "
                   "installation.",
                   product.installLocation.c_str(), static_cast<std::int32_t>(code),
                   product.displayName.c_str())};
}
