// Making a product's installer: its identity is stamped into the bytes of the built one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/stamped_identity.h"
#include "catalogue/product_catalogue.h"

/// A code as it goes into the executable.
struct StampedCode {
    std::string code;
    std::string note;  ///< empty, or tells that it is not as given
};

/// The product that `given` names, letter case ignored: the catalogue's code, which its tables are
/// looked up by, but for the directly installed edition, which is stamped "1Q". Throws Refusal for
/// a code that is no product's.
[[nodiscard]] StampedCode chooseStampedCode(const CProductData& catalogue, std::string_view given);

/// Fills the block of app/stamped_identity.h, the product in the version resource (see
/// version_stamp.h), with `build` when that is not empty, has Windows load the executable whole
/// from removable media and from the net, and sets its checksum. Throws Refusal with `image`
/// unchanged when it is no 32-bit Windows executable, is signed, does not hold the block exactly
/// once, or a text is empty or does not fit.
void stampImage(std::string& image, std::string_view code, std::string_view name,
                std::string_view build = {});

/// Reads the block. False when the image does not hold it exactly once.
bool readStamp(std::string_view image, std::string& code, std::string& name);

/// The longest name that fits.
inline constexpr std::size_t longestStampedName = sizeof StampedIdentity::productName - 1;

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
