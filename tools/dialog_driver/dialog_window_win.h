// A dialog of another process: what a person sees on it and can do with it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct DialogWindow {
    /// The dialogs of every process, the top one first.
    [[nodiscard]] static std::vector<DialogWindow> all();

    [[nodiscard]] std::string title() const;
    /// Title ("(owned)" behind it where another window owns the dialog), icon (error, question,
    /// warning, information), texts, rows of a list with check boxes and buttons without their
    /// access keys, as "title | warning | text | [x] row | [ ] row | OK".
    [[nodiscard]] std::string description() const;

    /// Does what a person would, by a button's label (one that is visible; "&" is passed over), or
    ///   close         clicks the close box
    ///   id NUMBER     clicks the control of this id, visible or not, as unattended scripts do
    ///   key NUMBER    presses a virtual key on the control that has the focus, once one has it
    ///   move NUMBER   the same, and waits until another control has the focus
    ///   sees TEXT     does nothing, but expects TEXT within the description
    ///   columns TEXT  expects this of the list: for each column "WIDTH,LVCFMT ", then the bits of
    ///                 the lower word in which its extended style differs from its window style
    /// Does not wait for what a push button, the close box or a key brings about. Returns why it
    /// could not be done; empty when it was.
    [[nodiscard]] std::string act(const std::string& action) const;

    HWND window;
};
