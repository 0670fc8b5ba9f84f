#include "tools/dialog_driver/dialog_probe_win.h"

#include <commctrl.h>

#ifdef _MSC_VER
#pragma section("shared", read, write, shared)
__declspec(allocate("shared")) char dialogProbeAnswer[1024] = "";
#else
__attribute__((section("shared"), shared)) char dialogProbeAnswer[1024] = "";
#endif

namespace {

const char* iconName(LRESULT icon) {
    const struct {
        LPCSTR resource;
        const char* name;
    } table[] = {{IDI_ERROR, "error"},
                 {IDI_QUESTION, "question"},
                 {IDI_WARNING, "warning"},
                 {IDI_INFORMATION, "information"}};
    for (const auto& row : table) {
        // However often a process loads one of the system's icons, the handle is the same.
        if (icon == reinterpret_cast<LRESULT>(LoadIconA(nullptr, row.resource))) {
            return row.name;
        }
    }
    return "";
}

}  // namespace

LRESULT CALLBACK dialogProbeHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == RegisterWindowMessageA(dialogProbeQuestion)) {
        dialogProbeAnswer[0] = '\0';
        if (sent.wParam == iconQuestion) {
            lstrcpynA(dialogProbeAnswer, iconName(SendMessageA(sent.hwnd, STM_GETICON, 0, 0)),
                      sizeof dialogProbeAnswer);
        } else if ((sent.wParam & columnQuestion) != 0) {
            LVCOLUMNA column{};
            column.mask = LVCF_WIDTH | LVCF_FMT;
            if (SendMessageA(sent.hwnd, LVM_GETCOLUMNA, sent.wParam & ~columnQuestion,
                             reinterpret_cast<LPARAM>(&column)) != 0) {
                wsprintfA(dialogProbeAnswer, "%d,%d", column.cx, column.fmt);
            }
        } else {
            LVITEMA item{};
            item.iSubItem = 1;  // the first column holds the check box alone
            item.pszText = dialogProbeAnswer;
            item.cchTextMax = sizeof dialogProbeAnswer;
            SendMessageA(sent.hwnd, LVM_GETITEMTEXTA, sent.wParam, reinterpret_cast<LPARAM>(&item));
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
