#pragma once

#include <string>

#include "framework/button.h"
#include "framework/dialog.h"

/// Bits of the product type; exactly one is set once a choice has been made.
namespace product_type {
inline constexpr unsigned live = 2;
inline constexpr unsigned viewer = 4;
inline constexpr unsigned demonstration = 8;
}  // namespace product_type

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
