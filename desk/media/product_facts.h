// What is known of a product before anything is built, from the installer's own decisions.
#pragma once

#include <string>
#include <vector>

#include "app/install_plan.h"

struct ProductFacts {
    std::string code;  ///< as stamped
    int number = 0;
    std::string name;
    std::string edition;                    ///< full, demonstration, viewer-only, free viewer
    std::string demonstrationOf;            ///< the full product's code; empty: of none
    std::string route;                      ///< through the run, in words
    bool endsSilently = false;              ///< the run installs nothing and says nothing
    std::vector<std::string> choices = {};  ///< that the dialog offers; empty: nothing is asked
    std::vector<std::string> files = {};    ///< that the run needs on the media
    bool setupsPerProcessor = false;
};

/// Of the products with these codes, in any letter case, and of all where there are none; in the
/// order of the codes. Throws Refusal for a code that is no product's.
[[nodiscard]] std::vector<ProductFacts> productFacts(const std::vector<std::string>& codes = {});

/// Folder of a product in a release and among media: its code in lower case.
[[nodiscard]] std::string folderOf(const std::string& code);

/// In words, what a plan does.
[[nodiscard]] std::string routeInWords(const InstallPlan& plan);

struct NeededFile {
    std::string name;
    std::string purpose;
};

/// What a plan needs on the media.
[[nodiscard]] std::vector<NeededFile> neededFiles(const InstallPlan& plan);
