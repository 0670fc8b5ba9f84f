// Runs an installer for a script or a person at the keyboard:
//
//   click_through INSTALLER ARGUMENT...
//
// Prints a line for each dialog as it comes up, with what DialogWindow tells of it,
//   dialog <tab> left <tab> top <tab> width <tab> height <tab> description
// then reads lines, each what DialogWindow::act takes, until an empty one or the end of input. Once
// the installer and all that it started have ended, prints
//   end
// What goes wrong ends it with exit code 1 and, on the error output, the reason.
#include <windows.h>

#include <algorithm>
#include <iostream>

#include "tools/dialog_driver/installer_run_win.h"

namespace {

int fail(const std::string& reason) {
    std::cerr << "click_through: " << reason << std::endl;
    return 1;
}

void print(const DialogWindow& dialog) {
    RECT place{};
    GetWindowRect(dialog.window, &place);
    std::string description = dialog.description();
    std::replace(description.begin(), description.end(), '\n', ' ');
    std::cout << "dialog\t" << place.left << '\t' << place.top << '\t' << place.right - place.left
              << '\t' << place.bottom - place.top << '\t' << description << std::endl;
}

}  // namespace

int main(int count, char** values) {
    if (count < 2) {
        return fail("no installer named");
    }
    InstallerRun run(values[1], {values + 2, values + count});
    while (const std::optional<DialogWindow> dialog = run.nextDialog(INFINITE)) {
        // Wine leaves the caption of a first dialog that has the input as if it had not.
        SendMessageA(dialog->window, WM_NCACTIVATE, TRUE, 0);
        print(*dialog);
        for (std::string action; std::getline(std::cin, action) && !action.empty();) {
            if (const std::string error = dialog->act(action); !error.empty()) {
                return fail(error);
            }
        }
    }
    run.awaitEnd();
    if (!run.error.empty()) {
        return fail(run.error);
    }
    std::cout << "end" << std::endl;
    return 0;
}
