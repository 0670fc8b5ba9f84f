#include "tests/end_to_end/dialog_window.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

constexpr UINT answerDeadline = 10000;

LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, answerDeadline, &result);
    return static_cast<LRESULT>(result);
}

std::string withoutAccessKeys(std::string label) {
    std::erase(label, '&');
    return label;
}

std::string className(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
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

/// Memory of the window's process, for messages and calls that take pointers.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, size_t size) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
        address = static_cast<char*>(VirtualAllocEx(
            process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
    }
    ~RemoteMemory() {
        VirtualFreeEx(process, address, 0, MEM_RELEASE);
        CloseHandle(process);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    void write(size_t offset, const void* data, size_t size) const {
        WriteProcessMemory(process, address + offset, data, size, nullptr);
    }
    void read(size_t offset, void* data, size_t size) const {
        ReadProcessMemory(process, address + offset, data, size, nullptr);
    }

    HANDLE process;
    char* address;
};

/// The resource number of a static control's icon. An icon's particulars are told only within its
/// own process, so the question is put there.
WORD iconNumber(HWND control) {
    struct Call {
        unsigned char code[32];
        ICONINFOEXA info;
    } call{};
    const RemoteMemory memory(control, sizeof call);
    const auto icon = static_cast<DWORD>(ask(control, STM_GETICON));
    const auto info = reinterpret_cast<DWORD>(memory.address + offsetof(Call, info));
    const auto function =
        reinterpret_cast<DWORD>(GetProcAddress(GetModuleHandleA("user32.dll"), "GetIconInfoExA"));
    // push info; push icon; mov eax, function; call eax; ret 4
    unsigned char code[] = {0x68, 0, 0, 0, 0, 0x68, 0,    0,    0,    0,
                            0xB8, 0, 0, 0, 0, 0xFF, 0xD0, 0xC2, 0x04, 0x00};
    std::memcpy(code + 1, &info, 4);
    std::memcpy(code + 6, &icon, 4);
    std::memcpy(code + 11, &function, 4);
    std::memcpy(call.code, code, sizeof code);
    call.info.cbSize = sizeof call.info;
    memory.write(0, &call, sizeof call);
    const HANDLE thread = CreateRemoteThread(
        memory.process, nullptr, 0, reinterpret_cast<LPTHREAD_START_ROUTINE>(memory.address),
        nullptr, 0, nullptr);
    WaitForSingleObject(thread, answerDeadline);
    CloseHandle(thread);
    memory.read(0, &call, sizeof call);
    return call.info.wResID;
}

}  // namespace

std::string windowText(HWND window) {
    std::string text(static_cast<size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, '\0');
    text.resize(static_cast<size_t>(
        ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

std::ostream& operator<<(std::ostream& out, const Box& box) {
    return out << box.title << " | " << box.text << " | icon " << box.icon << " | " << box.buttons;
}

std::ostream& operator<<(std::ostream& out, const ListRow& row) {
    return out << (row.ticked ? "[x] " : "[ ] ") << row.text;
}

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

bool DialogWindow::shows(const std::string& text) const {
    const std::vector<std::string> shown = texts();
    return std::find(shown.begin(), shown.end(), text) != shown.end();
}

Box DialogWindow::box() const {
    Box box;
    box.title = title();
    for (HWND child : visibleChildren(window)) {
        if (className(child) == "Button") {
            box.buttons += (box.buttons.empty() ? "" : " ") + withoutAccessKeys(windowText(child));
        } else if ((GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
            box.icon = iconNumber(child);
        } else {
            box.text += windowText(child);
        }
    }
    return box;
}

void DialogWindow::click(const char* label) const {
    const HWND button = child(label);
    ASSERT_NE(button, nullptr) << "no button \"" << label << "\" on \"" << title() << '"';
    PostMessageA(button, BM_CLICK, 0, 0);
}

void DialogWindow::close() const {
    PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0);
}

std::vector<ListRow> DialogWindow::rows() const {
    constexpr int textSize = 512;
    const HWND list = listView();
    const RemoteMemory memory(list, sizeof(LVITEMA) + textSize);
    std::vector<ListRow> rows;
    for (int row = 0; row < ask(list, LVM_GETITEMCOUNT); ++row) {
        LVITEMA item{};
        item.iSubItem = 1;
        item.pszText = memory.address + sizeof item;
        item.cchTextMax = textSize;
        memory.write(0, &item, sizeof item);
        ask(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row),
            reinterpret_cast<LPARAM>(memory.address));
        char text[textSize] = "";
        memory.read(sizeof item, text, sizeof text);
        const LRESULT state =
            ask(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
        rows.push_back({text, (state >> 12) == 2});
    }
    return rows;
}

void DialogWindow::tick(int row, bool ticked) const {
    const HWND list = listView();
    const RemoteMemory memory(list, sizeof(LVITEMA));
    LVITEMA item{};
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(ticked ? 2 : 1);
    memory.write(0, &item, sizeof item);
    ask(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.address));
}

HWND DialogWindow::child(const char* label) const {
    for (HWND child : visibleChildren(window)) {
        if (className(child) == "Button" && withoutAccessKeys(windowText(child)) == label) {
            return child;
        }
    }
    return nullptr;
}

HWND DialogWindow::listView() const {
    return FindWindowExA(window, nullptr, WC_LISTVIEWA, nullptr);
}
