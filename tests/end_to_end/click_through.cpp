// click_through INSTALLER ARGUMENT...: runs an installer for a script or a person at the keyboard.
// Prints each dialog as it comes up,
//   dialog <tab> left <tab> top <tab> width <tab> height <tab> title
//   text <tab> one visible text, on one line
//   ?
// then reads lines, each what DialogWindow::act takes, until an empty one or the end of input.
#include <windows.h>

#include <algorithm>
#include <iostream>

#include "tests/end_to_end/installer_run.h"

int main(int argc, char** argv) {
    std::string arguments;
    for (int index = 2; index < argc; ++index) {
        arguments += '"' + std::string(argv[index]) + "\" ";
    }
    InstallerRun run(argv[1], arguments);
    while (const auto dialog = run.nextDialog(INFINITE)) {
        // Wine leaves the caption of a first dialog that has the input as if it had not.
        SendMessageA(dialog->window, WM_NCACTIVATE, TRUE, 0);
        RECT place;
        GetWindowRect(dialog->window, &place);
        std::cout << "dialog\t" << place.left << '\t' << place.top << '\t'
                  << place.right - place.left << '\t' << place.bottom - place.top << '\t'
                  << dialog->title() << '\n';
        for (std::string text : dialog->texts()) {
            std::replace(text.begin(), text.end(), '\n', ' ');
            std::cout << "text\t" << text << '\n';
        }
        std::cout << '?' << std::endl;
        for (std::string action; std::getline(std::cin, action) && !action.empty();) {
            dialog->act(action);
        }
    }
    run.awaitEnd();
}
