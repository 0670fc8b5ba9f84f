#include "app/environment_policy.h"

#include "platform/operating_system.h"

OperatingSystemPolicy operatingSystemPolicy(int code, const std::string& name) {
    // Kept: the refusal names two systems only, the workstation releases from XP on pass without
    // a word and the servers before 2012 are asked about. Customers install on all of them.
    switch (code) {
        case operating_system_code::nameTooLong:
            return {false, Message{"Memory allocation failure during operating system detection.",
                                   MessageIcon::Error, MessageButtons::Ok}};
        case operating_system_code::notRecognised:
            return {false, Message{"Invalid operating system detected.", MessageIcon::Error,
                                   MessageButtons::Ok}};
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
        case 6:
        case 7:
            return {false, Message{"This product is only supported on Windows 7 and Windows 8 "
                                   "operating systems.",
                                   MessageIcon::Warning, MessageButtons::Ok}};
        case 8:   // 2000
        case 11:  // Server 2003
        case 12:  // Home Server
        case 13:  // Server 2003 R2
        case 15:  // Server 2008
        case 16:  // Server 2008 R2
        case operating_system_code::unknownNewer:
            return {true, Message{"This product has not been tested on " + name +
                                      ".\n\nWould you like to continue the installation?",
                                  MessageIcon::Warning, MessageButtons::YesNo}};
        default:
            return {true, std::nullopt};
    }
}

Message administratorRequiredMessage() {
    return {
        "You must be logged in as the Administrator, or be a member of the Administrator Group "
        "in order to install this product.\n\nPlease log in as an Administrator and retry "
        "this installation.\n\nYou do not need to be "
        "an Administrator to run the product.",
        MessageIcon::Warning, MessageButtons::Ok};
}
