#pragma once

#include <windows.h>

#include <optional>
#include <string>

/// HTML Help, loaded from its registered control when it is first asked for. Where it cannot be
/// loaded, that is remembered and asking does nothing. Its windows are closed with the object; the
/// control stays loaded until the process ends, since they have threads of their own.
class HtmlHelpControl {
  public:
    ~HtmlHelpControl();
    HtmlHelpControl& operator=(HtmlHelpControl&&) = delete;  // nor is it copied

    /// Opens the file at its first page.
    void displayTopic(HWND owner, const std::string& file);

  private:
    using EntryPoint = HWND(WINAPI*)(HWND, const char*, UINT, DWORD_PTR);
    std::optional<EntryPoint> entryPoint;  ///< null within, where loading failed
};
