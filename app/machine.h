// What a run asks of a computer, shows on it and does to it: the one interface that the whole run
// is written over. The real computer is windows_machine_win.h; the desk's described machine answers
// from a description, and keeps what a run did.
#pragma once

#include <functional>

#include "app/install_log.h"
#include "app/stamped_identity.h"
#include "installed/installed_product.h"
#include "platform/computer.h"
#include "ui/install_dialog.h"

class Machine : public Computer {
  public:
    /// What the program was started with; the first one is the program's path.
    [[nodiscard]] virtual std::vector<std::string> arguments() = 0;
    [[nodiscard]] virtual ProductIdentity stampedIdentity() = 0;
    /// Whether the user is a member of the local Administrators group; false too where that cannot
    /// be found out.
    [[nodiscard]] virtual bool isAdministrator() = 0;
    /// UTC.
    [[nodiscard]] virtual SystemTime currentTime() = 0;

    /// Lists `products`, all ticked, until the user decides. Where the user confirmed, `remove` is
    /// called with each name that is still ticked, in the order of the list, while the list
    /// stands. Whatever the user does, the run goes on.
    virtual void offerRemoval(const std::vector<InstalledProduct>& products,
                              const std::function<void(const std::string& tickedName)>& remove) = 0;
    /// The product type that the user chose, one bit of product_type; nothing when the user
    /// cancelled.
    [[nodiscard]] virtual std::optional<unsigned> askProductType(
        const ProductTypeQuestion& question) = 0;
    /// Dispatches at most one message that is pending for a window: what a closed dialog left.
    virtual void dispatchPendingMessage() = 0;

    /// Appends `line` and a line end to the install log. A log that cannot be written is ignored.
    virtual void appendToLog(const std::string& line) = 0;
};
