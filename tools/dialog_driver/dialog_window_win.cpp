#include "tools/dialog_driver/dialog_window_win.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdlib>

#include "tools/dialog_driver/dialog_probe_win.h"

namespace {

constexpr UINT answerDeadline = 20000;  // milliseconds

LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, answerDeadline, &result);
    return static_cast<LRESULT>(result);
}

std::string windowText(HWND window) {
    std::string text(static_cast<size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, '\0');
    text.resize(static_cast<size_t>(
        ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

bool isOfClass(HWND window, const char* name) {
    char actual[64] = "";
    GetClassNameA(window, actual, sizeof actual);
    return lstrcmpiA(actual, name) == 0;
}

BOOL CALLBACK addDialog(HWND window, LPARAM dialogs) {
    if (isOfClass(window, "#32770")) {
        reinterpret_cast<std::vector<DialogWindow>*>(dialogs)->push_back({window});
    }
    return TRUE;
}

std::string label(HWND button) {
    std::string text = windowText(button);
    std::erase(text, '&');
    return text;
}

std::vector<HWND> visibleChildren(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (IsWindowVisible(child)) {
            children.push_back(child);
        }
    }
    return children;
}

/// Asks within the window's process what it tells only there.
std::string probe(HWND window, WPARAM question) {
    const HHOOK hook =
        SetWindowsHookExA(WH_CALLWNDPROC, dialogProbeHook, GetModuleHandleA("dialog_probe.dll"),
                          GetWindowThreadProcessId(window, nullptr));
    dialogProbeAnswer[0] = '\0';
    ask(window, RegisterWindowMessageA(dialogProbeQuestion), question);
    UnhookWindowsHookEx(hook);
    return dialogProbeAnswer;
}

/// Asks until it is told: on a busy machine a window that has just come up may not answer at once.
std::string iconOf(HWND control) {
    std::string icon;
    for (const DWORD start = GetTickCount();
         icon.empty() && GetTickCount() - start < answerDeadline; Sleep(1)) {
        icon = probe(control, iconQuestion);
    }
    return icon;
}

/// Waits for a control other than `before` that has the focus; null when none gets it.
HWND focusedControl(HWND dialog, HWND before = nullptr) {
    const DWORD thread = GetWindowThreadProcessId(dialog, nullptr);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    for (const DWORD start = GetTickCount(); GetTickCount() - start < answerDeadline; Sleep(1)) {
        if (GetGUIThreadInfo(thread, &info) && IsChild(dialog, info.hwndFocus) &&
            info.hwndFocus != before) {
            return info.hwndFocus;
        }
    }
    return nullptr;
}

std::string listLook(HWND list) {
    std::string look, column;
    for (WPARAM index = 0; !(column = probe(list, columnQuestion | index)).empty(); ++index) {
        look += column + ' ';
    }
    const LONG style = GetWindowLongA(list, GWL_STYLE);
    const auto extended = static_cast<LONG>(ask(list, LVM_GETEXTENDEDLISTVIEWSTYLE));
    return look + std::to_string((extended ^ style) & 0xFFFF);
}

std::string rowText(HWND list, WPARAM row) {
    const LRESULT state = ask(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK);
    return ((state >> 12) == 2 ? "[x] " : "[ ] ") + probe(list, row);
}

/// False: there is no such button.
bool click(HWND dialog, const std::string& wanted) {
    for (HWND child : visibleChildren(dialog)) {
        if (isOfClass(child, "Button") && label(child) == wanted) {
            // A push button may show the next dialog; the others are done when they answer.
            if ((GetWindowLongA(child, GWL_STYLE) & BS_TYPEMASK) <= BS_DEFPUSHBUTTON) {
                PostMessageA(child, BM_CLICK, 0, 0);
            } else {
                ask(child, BM_CLICK);
            }
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<DialogWindow> DialogWindow::all() {
    // Not from each window to the next: one that is destroyed meanwhile leads Wine 10 in circles.
    std::vector<DialogWindow> dialogs;
    EnumWindows(addDialog, reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

std::string DialogWindow::title() const {
    return windowText(window);
}

std::string DialogWindow::description() const {
    std::string icon, texts, rows, buttons;
    for (HWND child : visibleChildren(window)) {
        if (isOfClass(child, WC_LISTVIEWA)) {
            for (WPARAM row = 0; row < static_cast<WPARAM>(ask(child, LVM_GETITEMCOUNT)); ++row) {
                rows += " | " + rowText(child, row);
            }
        } else if (isOfClass(child, "Button")) {
            buttons += " | " + label(child);
        } else if ((GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
            icon = " | " + iconOf(child);
        } else {
            texts += " | " + windowText(child);
        }
    }
    const char* owned = GetWindow(window, GW_OWNER) != nullptr ? " (owned)" : "";
    return title() + owned + icon + texts + rows + buttons;
}

std::string DialogWindow::act(const std::string& action) const {
    if (action == "close") {
        PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    } else if (action.starts_with("key ") || action.starts_with("move ")) {
        const HWND control = focusedControl(window);
        if (control == nullptr) {
            return "no control has the focus on " + description();
        }
        const int key = std::atoi(action.c_str() + action.find(' '));
        PostMessageA(control, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
        if (action.starts_with("move ") && focusedControl(window, control) == nullptr) {
            return "the focus stays where it is on " + description();
        }
    } else if (action.starts_with("id ")) {
        PostMessageA(GetDlgItem(window, std::atoi(action.c_str() + 3)), BM_CLICK, 0, 0);
    } else if (action.starts_with("sees ")) {
        if (const std::string seen = description();
            seen.find(action.substr(5)) == std::string::npos) {
            return '"' + action.substr(5) + "\" is not on " + seen;
        }
    } else if (action.starts_with("columns ")) {
        if (const std::string look =
                listLook(FindWindowExA(window, nullptr, WC_LISTVIEWA, nullptr));
            look != action.substr(8)) {
            return "the list has the columns " + look + " and not " + action.substr(8);
        }
    } else if (!click(window, action)) {
        return "no button \"" + action + "\" on " + description();
    }
    return "";
}
