#pragma once

#include <string>

#include "framework/button.h"
#include "framework/dialog.h"
#include "ui/product_type.h"

/// "Install Product": asks for the live product, the file viewer or the demonstration.
class CInstallDlg : public CDialog {
  public:
    /// `productText` is kept, not shown.
    explicit CInstallDlg(const std::string& productText, CWnd* parent = nullptr);

    void SetCaption(const std::string& text);
    /// Of any length and number of lines; the dialog grows to fit it.
    void SetPrompt(const std::string& text);
    void SetOfferDemonstration(bool offer);
    void SetOfferFileViewer(bool offer);

    /// The result; to be read after DoModal returned IDOK.
    unsigned productType = product_type::live;
};
