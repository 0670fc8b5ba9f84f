// A dialog of another process: what a person sees on it and can do with it.
#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <vector>

/// A message box as it is seen.
struct Box {
    std::string title = {};
    std::string text = {};
    WORD icon = 0;             ///< IDI_WARNING, IDI_ERROR ... as numbers; 0 for none
    std::string buttons = {};  ///< labels without access keys, separated by blanks

    bool operator==(const Box&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Box& box);

inline constexpr WORD warningIcon = 32515;
inline constexpr WORD errorIcon = 32513;

/// A row of a list view with check boxes.
struct ListRow {
    std::string text;  ///< of column 1
    bool ticked;

    bool operator==(const ListRow&) const = default;
};
std::ostream& operator<<(std::ostream& out, const ListRow& row);

class DialogWindow {
  public:
    explicit DialogWindow(HWND window) : window(window) {}

    std::string title() const;
    /// Every visible child's text that is not empty, in tab order.
    std::vector<std::string> texts() const;
    bool shows(const std::string& text) const;
    Box box() const;

    /// Clicks the visible button with this label; "&" in labels is passed over. Does not wait for
    /// what the click brings about.
    void click(const char* label) const;
    /// The close box.
    void close() const;

    /// Of the dialog's list view.
    std::vector<ListRow> rows() const;
    void tick(int row, bool ticked) const;

    HWND window;

  private:
    HWND child(const char* label) const;
    HWND listView() const;
};

std::string windowText(HWND window);
