// A dialog of another process: what a person sees on it and can do with it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class DialogWindow {
  public:
    explicit DialogWindow(HWND window) : window(window) {}

    std::string title() const;
    /// Every visible child's text that is not empty, in tab order.
    std::vector<std::string> texts() const;
    /// Title, icon (warning, error), texts, rows of a list with check boxes and buttons without
    /// their access keys, as "title | warning | text | [x] row | [ ] row | OK".
    std::string description() const;

    /// Clicks the visible button with this label; "&" in labels is passed over. Does not wait for
    /// what a push button brings about.
    void click(const std::string& label) const;
    /// A button's label, or
    ///   close       clicks the close box
    ///   key NUMBER  presses a virtual key on the list view, else on the dialog itself
    ///   sees TEXT   expects TEXT within the description
    void act(const std::string& action) const;

    HWND window;
};
