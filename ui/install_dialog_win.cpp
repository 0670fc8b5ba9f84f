#include "ui/install_dialog_win.h"

#include "platform/files_win.h"
#include "ui/html_help.h"
#include "ui/install_dialog.h"

namespace {

/// A window's device context with the window's own font selected.
class TextMeasure {
  public:
    explicit TextMeasure(HWND window) : window(window), context(GetDC(window)) {
        auto* const font = reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0));
        previousFont = SelectObject(context, font);
    }
    ~TextMeasure() {
        SelectObject(context, previousFont);
        ReleaseDC(window, context);
    }
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;

    [[nodiscard]] bool isValid() const { return context != nullptr; }

    [[nodiscard]] TextExtent extent(std::string_view text) const {
        SIZE size{};
        GetTextExtentPoint32A(context, text.data(), static_cast<int>(text.size()), &size);
        return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
    }

  private:
    HWND window;
    HDC context;
    HGDIOBJ previousFont;
};

void makeTaller(HWND window, int growth) {
    RECT area;
    GetWindowRect(window, &area);
    SetWindowPos(window, nullptr, 0, 0, area.right - area.left, area.bottom - area.top + growth,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void moveDown(HWND control, int growth) {
    RECT area;
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&area), 2);
    SetWindowPos(control, nullptr, area.left, area.top + growth, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

CInstallDlg::CInstallDlg(std::string productText, CWnd* parent)
    : CDialog(IDD_INSTALL_PRODUCT, parent),
      productText(std::move(productText)),
      icon(LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_INSTALLER))) {}

void CInstallDlg::SetCaption(const std::string& text) {
    caption = text;
    if (m_hWnd != nullptr) {
        SetWindowText(caption);
    }
}

void CInstallDlg::SetPrompt(const std::string& text) {
    prompt = text;
    if (m_hWnd != nullptr) {
        promptText.SetWindowText(prompt);
        LayOutPrompt();
    }
}

MessageMap CInstallDlg::GetMessageMap() const {
    static constexpr MessageEntry messages[] = {
        onMessage<&CInstallDlg::OnPaint>(WM_PAINT),
        onMessage<&CInstallDlg::OnQueryDragIcon>(WM_QUERYDRAGICON),
        onMessage<&CInstallDlg::OnHelpInfo>(WM_HELP),
    };
    static constexpr auto commands =
        Commands(std::make_index_sequence<std::size(productChoices)>());
    return {messages, commands};
}

bool CInstallDlg::OnInitDialog() {
    BindControl(promptText, IDC_INSTALL_PROMPT);
    BindControl(installButton, IDOK);
    BindControl(helpButton, IDC_HELP_BUTTON);
    for (std::size_t index = 0; index < std::size(choices); ++index) {
        BindControl(choices[index], productChoices[index].control);
        if ((offeredTypes & productChoices[index].type) == 0) {
            choices[index].ShowWindow(SW_HIDE);  // and keeps its place
        }
    }

    SendMessageA(m_hWnd, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessageA(m_hWnd, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
    SetCaption(caption);
    SetPrompt(prompt);
    choices[0].SetCheck(BST_CHECKED);
    return false;
}

void CInstallDlg::OnOK() {
    productType = productChoices[choice].type;
    CDialog::OnOK();
}

LRESULT CInstallDlg::OnPaint(WPARAM, LPARAM) {
    // Releases that paint a minimised window by its own procedure expect the icon here.
    if (!IsIconic(m_hWnd)) {
        return Default();
    }
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(m_hWnd, &paint);
    SendMessageA(m_hWnd, WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
    RECT client;
    GetClientRect(m_hWnd, &client);
    DrawIcon(context, centredOffset(client.right, GetSystemMetrics(SM_CXICON)),
             centredOffset(client.bottom, GetSystemMetrics(SM_CYICON)), icon);
    EndPaint(m_hWnd, &paint);
    return 0;
}

LRESULT CInstallDlg::OnHelpInfo(WPARAM, LPARAM) {
    OnHelp();
    return TRUE;
}

void CInstallDlg::OnHelp() {
    help.displayTopic(m_hWnd, helpFilePath(runningProgramPath()));
}

void CInstallDlg::LayOutPrompt() {
    RECT area;
    GetWindowRect(promptText.m_hWnd, &area);
    const TextMeasure measure(promptText.m_hWnd);
    if (!measure.isValid()) {
        return;
    }
    std::vector<TextExtent> lines;
    for (const std::string_view line : promptLines(prompt)) {
        lines.push_back(measure.extent(line));
    }
    const int growth = promptGrowth(lines, area.right - area.left, area.bottom - area.top);
    if (growth == 0) {
        return;
    }
    makeTaller(m_hWnd, growth);
    makeTaller(promptText.m_hWnd, growth);
    for (const HWND button :
         {GetDlgItem(m_hWnd, IDCANCEL), helpButton.m_hWnd, installButton.m_hWnd}) {
        moveDown(button, growth);
    }
    for (const CButton& button : choices) {
        moveDown(button.m_hWnd, growth);
    }
}
