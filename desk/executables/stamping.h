// Making a product's installer, for the commands that do.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/product_catalogue.h"

/// What is stamped into an installer.
struct ProductStamp {
    std::string code;
    std::string name;
    std::string build;               ///< for the version resource; empty: the installer's own
    std::vector<std::string> notes;  ///< what the caller should be told
};

/// `code` in any letter case; an empty `name` stands for the catalogue's. Throws Refusal for a code
/// that is no product's, and for a name or build that does not fit.
[[nodiscard]] ProductStamp chooseStamp(CProductData& catalogue, const std::string& code,
                                       const std::string& name, const std::string& build);

/// Far more than an installer has: what is larger is not looked into.
inline constexpr std::uintmax_t largestInstaller = 32 << 20;

/// The bytes of an installer. Throws Refusal when it cannot be read or is larger than any.
[[nodiscard]] std::string readInstaller(const std::string& file);

/// The installer `image`, read from `file`, stamped. Throws Refusal when it cannot be stamped.
[[nodiscard]] std::string stampedInstaller(std::string image, const std::string& file,
                                           const ProductStamp& stamp);
