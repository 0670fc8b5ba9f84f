#pragma once

#include <array>
#include <utility>

#include "framework/controls_win.h"
#include "ui/html_help_win.h"
#include "ui/product_type.h"

/// "Install Product": asks for the live product, the file viewer or the demonstration.
class CInstallDlg : public CDialog {
  public:
    /// `productText` is kept, not shown.
    explicit CInstallDlg(std::string productText, CWnd* parent = nullptr);

    void SetCaption(const std::string& text);
    /// Of any length and number of lines; the dialog grows to fit it, and never shrinks.
    void SetPrompt(const std::string& text);
    /// Bits of product_type. Before DoModal; otherwise the live product alone is offered.
    void SetOfferedTypes(unsigned types) { offeredTypes = types; }

    /// The result; to be read after DoModal returned IDOK.
    unsigned productType = product_type::live;

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    [[nodiscard]] MessageMap GetMessageMap() const override;

  private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnQueryDragIcon(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(icon); }
    LRESULT OnHelpInfo(WPARAM, LPARAM);
    void OnHelp();
    template <std::size_t index>
    void OnChoice() {
        choice = index;
    }
    template <std::size_t... index>
    static consteval auto Commands(std::index_sequence<index...>) {
        return std::array{
            onClicked<&CInstallDlg::OnHelp>(IDC_HELP_BUTTON),
            onClicked<&CInstallDlg::OnChoice<index>>(productChoices[index].control)...};
    }

    /// Makes room for the prompt, from the sizes that the windows have now.
    void LayOutPrompt();

    CWnd promptText;
    CButton choices[std::size(productChoices)];
    CButton installButton;
    CButton helpButton;

    std::string productText;
    std::string caption;
    std::string prompt;
    unsigned choice = 0;  ///< index within productChoices
    unsigned offeredTypes = product_type::live;
    HICON icon;  ///< shared, never destroyed
    HtmlHelpControl help;
};
