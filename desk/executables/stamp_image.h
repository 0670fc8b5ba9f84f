// Stamping a product's identity into an installer, on the bytes of the executable.
#pragma once

#include <string>
#include <string_view>

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
