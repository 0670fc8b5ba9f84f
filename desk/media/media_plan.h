// What the media folder of a product is to hold, worked out before anything is written.
#pragma once

#include <string>
#include <vector>

#include "desk/executables/stamp_image.h"
#include "desk/media/layout_description.h"
#include "desk/media/manifest.h"
#include "desk/media/product_facts.h"

/// A file of a media folder: made of bytes, or copied when there is a source.
struct PlannedFile {
    std::string name;  ///< its path within the folder
    std::string bytes;
    fs::path source;
    std::string digest;
};

struct MediaPlan {
    ProductFacts facts;
    std::string installerName;
    ProductStamp stamp;
    std::vector<PlannedFile> files;
};

/// All but the installer, which addInstaller adds. What is missing, damaged or twice there goes to
/// `problems`, all of it.
[[nodiscard]] MediaPlan planMedia(const LayoutDescription& description, const ProductFacts& facts,
                                  std::vector<std::string>& problems);

void addInstaller(MediaPlan& media, const fs::path& source, std::vector<std::string>& problems);

/// The manifest of the folder.
[[nodiscard]] std::string manifestOf(const MediaPlan& media);

/// Makes the folder, with its manifest. Throws Refusal.
void makeMedia(const MediaPlan& media, const fs::path& folder, bool links);
