// Making a product's installer: its identity is stamped into the bytes of the built one. Explorer
// and inventory programs show it from the version resource, behind whose texts ui/version.rc leaves
// room: nothing moves, the lengths alone change.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/stamped_identity.h"
#include "catalogue/product_catalogue.h"

/// The code that is stamped for the product that `given` names, letter case ignored: the
/// catalogue's, which its tables are looked up by, but for the directly installed edition, which is
/// stamped "1Q". Throws Refusal for a code that is no product's.
[[nodiscard]] std::string stampedCode(const CProductData& catalogue, std::string_view given);

/// Fills the block of app/stamped_identity.h and, where the image has room for them, the version
/// resource's "ProductName", "FileDescription" and, unless `build` is empty, product version; has
/// Windows load the executable whole from removable media and from the net, and sets its checksum.
/// Throws Refusal with `image` unchanged when it is no 32-bit Windows executable, is signed, does
/// not hold the block exactly once, or a text is empty or does not fit.
void stampImage(std::string& image, std::string_view code, std::string_view name,
                std::string_view build = {});

/// Reads the block; empty texts when the image does not hold it exactly once.
[[nodiscard]] ProductIdentity readStamp(std::string_view image);

/// A text of the version resource, such as "ProductName", without blanks at its end and with "?"
/// for characters that are not ASCII. Nothing when the image does not hold it.
[[nodiscard]] std::optional<std::string> versionText(std::string_view image, std::string_view key);

/// What is stamped into an installer.
struct ProductStamp {
    std::string code;
    std::string name;
    std::string build;               ///< for the version resource; empty: the installer's own
    std::vector<std::string> notes;  ///< what the caller should be told
};

/// `code` in any letter case; an empty `name` stands for the catalogue's. Throws Refusal for a code
/// that is no product's, and for a name or build that does not fit.
[[nodiscard]] ProductStamp chooseStamp(const std::string& code, const std::string& name,
                                       const std::string& build);

/// Far more than an installer has: what is larger is not looked into.
inline constexpr std::uintmax_t largestInstaller = 32 << 20;

/// The bytes of an installer. Throws Refusal when it cannot be read or is larger than any.
[[nodiscard]] std::string readInstaller(const std::string& file);

/// The installer in `file`, stamped. Throws Refusal when it cannot be read or stamped.
[[nodiscard]] std::string stampedInstaller(const std::string& file, const ProductStamp& stamp);
