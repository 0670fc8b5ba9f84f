// The one way in which the installers of products are made: stamped, signed, verified.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "desk/executables/signature.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/output_folder.h"

struct InstallerOrder {
    std::string path;       ///< within the folder to make it in
    std::string installer;  ///< the built one, which belongs to no product
    ProductStamp stamp;
};

/// Makes all, several at a time, within a folder that it returns. Signed ones outlive a failed run,
/// and the next with the same orders and choices goes on with those that are not. Throws Refusal.
std::filesystem::path makeInstallers(const std::vector<InstallerOrder>& orders,
                                     const SigningChoices& signing, OutputFolder& output);
