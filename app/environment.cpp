#include "app/environment.h"

#include "platform/operating_system.h"

namespace code = operating_system_code;

Message notAdministratorMessage() {
    return {
        "You must be logged in as the Administrator, or be a member of the Administrator Group "
        "in order to install this product.\n\nPlease log in as an Administrator and retry this "
        "installation.\n\nYou do not need to be an Administrator to run the product."};
}

EnvironmentPolicy environmentPolicy(int systemCode, const std::string& name) {
    // Kept: the refusal names two systems only, the workstation releases from XP on pass without
    // a word and the servers before 2012 are asked about. Customers install on all of them.
    if (systemCode >= code::win32s && systemCode <= code::windowsNt4) {
        return {false, Message{"This product is only supported on Windows 7 and Windows 8 "
                               "operating systems."}};
    }
    switch (systemCode) {
        case code::nameTooLong:
            return {false, Message{"Memory allocation failure during operating system detection.",
                                   MessageIcon::Error}};
        case code::notRecognised:
            return {false, Message{"Invalid operating system detected.", MessageIcon::Error}};
        case code::windows2000:
        case code::server2003:
        case code::homeServer:
        case code::server2003R2:
        case code::server2008:
        case code::server2008R2:
        case code::unknownNewer:
            return {true, Message{"This product has not been tested on " + name +
                                      ".\n\nWould you like to continue the installation?",
                                  MessageIcon::Warning, MessageButtons::YesNo}};
        default:
            return {true, std::nullopt};
    }
}
