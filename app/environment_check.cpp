#include "app/administrator.h"
#include "app/environment_policy.h"
#include "app/install_app.h"
#include "app/show_message.h"
#include "platform/operating_system_query.h"

bool CInstallApp::CheckEnvironment() {
    bool administrator = false;
    IsAdministrator(administrator);  // a test that failed counts as not being one
    if (!administrator) {
        showMessage(administratorRequiredMessage());
        return false;
    }
    char name[256] = "";
    operatingSystemCode = operatingSystemName(name, sizeof name);
    const OperatingSystemPolicy policy = operatingSystemPolicy(operatingSystemCode, name);
    const bool agreed = !policy.message || showMessage(*policy.message);
    return policy.accepted && agreed;
}
