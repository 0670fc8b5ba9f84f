#pragma once

#include <string>

#include "framework/controls_win.h"
#include "framework/dialog_win.h"
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
    /// Before DoModal. Neither is offered otherwise; the live product always is.
    void SetOfferDemonstration(bool offer);
    void SetOfferFileViewer(bool offer);

    /// The result; to be read after DoModal returned IDOK.
    unsigned productType = product_type::live;

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    [[nodiscard]] MessageMap GetMessageMap() const override;

  private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnQueryDragIcon(WPARAM, LPARAM);
    LRESULT OnHelpInfo(WPARAM, LPARAM);
    void OnHelp();
    template <unsigned index>
    void OnChoice() {
        choice = index;
    }

    /// Makes room for the prompt, from the sizes that the windows have now.
    void LayOutPrompt();

    CWnd promptText;
    CButton liveProduct;
    CButton fileViewer;
    CButton demonstration;
    CButton installButton;
    CButton helpButton;

    std::string productText;
    std::string caption;
    std::string prompt;
    unsigned choice = 0;  ///< 0 live product, 1 file viewer, 2 demonstration
    bool offerDemonstration = false;
    bool offerFileViewer = false;
    HICON icon;  ///< shared, never destroyed
    HtmlHelpControl help;
};
