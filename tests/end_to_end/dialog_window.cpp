#include "tests/end_to_end/dialog_window.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace {

constexpr UINT answerDeadline = 20000;

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

/// A copy of `Data` in the window's process, for messages and calls that take pointers.
template <class Data>
class Lent {
  public:
    explicit Lent(HWND window) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
        address = static_cast<char*>(
            VirtualAllocEx(process, nullptr, sizeof(Data), MEM_COMMIT, PAGE_EXECUTE_READWRITE));
    }
    ~Lent() {
        VirtualFreeEx(process, address, 0, MEM_RELEASE);
        CloseHandle(process);
    }
    void put(const Data& data) {
        WriteProcessMemory(process, address, &data, sizeof data, nullptr);
    }
    void get(Data& data) { ReadProcessMemory(process, address, &data, sizeof data, nullptr); }

    HANDLE process;
    char* address;
};

/// An icon's resource number is told only within its own process, so the question is put there.
std::string iconName(HWND control) {
    struct Call {
        // push info; push icon; mov eax, function; call eax; ret 4
        unsigned char code[20] = {0x68, 0, 0, 0, 0, 0x68, 0,    0,    0,    0,
                                  0xB8, 0, 0, 0, 0, 0xFF, 0xD0, 0xC2, 0x04, 0x00};
        ICONINFOEXA info{sizeof info, FALSE, 0, 0, nullptr, nullptr, 0, "", ""};
    } call;
    Lent<Call> lent(control);
    const HMODULE user = GetModuleHandleA("user32.dll");
    const DWORD operands[] = {reinterpret_cast<DWORD>(lent.address + offsetof(Call, info)),
                              static_cast<DWORD>(ask(control, STM_GETICON)),
                              reinterpret_cast<DWORD>(GetProcAddress(user, "GetIconInfoExA"))};
    for (const int at : {0, 1, 2}) {
        std::memcpy(call.code + 1 + 5 * at, operands + at, 4);
    }
    lent.put(call);
    const auto entry = reinterpret_cast<LPTHREAD_START_ROUTINE>(lent.address);
    const HANDLE thread = CreateRemoteThread(lent.process, nullptr, 0, entry, nullptr, 0, nullptr);
    WaitForSingleObject(thread, answerDeadline);
    CloseHandle(thread);
    lent.get(call);
    const WORD number = call.info.wResID;
    return number == 32515 ? "warning" : number == 32513 ? "error" : std::to_string(number);
}

std::string rowText(HWND list, WPARAM row) {
    struct Item {
        LVITEMA item{};
        char text[512] = "";
    } data;
    Lent<Item> lent(list);
    data.item.iSubItem = 1;
    data.item.pszText = lent.address + offsetof(Item, text);
    data.item.cchTextMax = sizeof data.text;
    lent.put(data);
    ask(list, LVM_GETITEMTEXTA, row, reinterpret_cast<LPARAM>(lent.address));
    lent.get(data);
    const LRESULT state = ask(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK);
    return ((state >> 12) == 2 ? "[x] " : "[ ] ") + std::string(data.text);
}

}  // namespace

std::string DialogWindow::title() const {
    return windowText(window);
}

std::vector<std::string> DialogWindow::texts() const {
    std::vector<std::string> texts;
    for (HWND child : visibleChildren(window)) {
        if (const std::string text = windowText(child); !text.empty()) {
            texts.push_back(text);
        }
    }
    return texts;
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
            icon = " | " + iconName(child);
        } else {
            texts += " | " + windowText(child);
        }
    }
    return title() + icon + texts + rows + buttons;
}

void DialogWindow::click(const std::string& wanted) const {
    for (HWND child : visibleChildren(window)) {
        if (isOfClass(child, "Button") && label(child) == wanted) {
            // A push button may show the next dialog; the others are done when they answer.
            if ((GetWindowLongA(child, GWL_STYLE) & BS_TYPEMASK) <= BS_DEFPUSHBUTTON) {
                PostMessageA(child, BM_CLICK, 0, 0);
            } else {
                ask(child, BM_CLICK);
            }
            return;
        }
    }
    ADD_FAILURE() << "no button \"" << wanted << "\" on " << description();
}

void DialogWindow::act(const std::string& action) const {
    if (action == "close") {
        PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    } else if (action.starts_with("key ")) {
        const HWND list = FindWindowExA(window, nullptr, WC_LISTVIEWA, nullptr);
        PostMessageA(list != nullptr ? list : window, WM_KEYDOWN,
                     static_cast<WPARAM>(std::atoi(action.c_str() + 4)), 0);
    } else if (action.starts_with("sees ")) {
        EXPECT_NE(description().find(action.substr(5)), std::string::npos)
            << action << ", but this is " << description();
    } else {
        click(action);
    }
}
