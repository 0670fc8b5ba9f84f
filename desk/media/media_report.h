// What a stamped installer will do with a media folder, and whether all that it needs is there and
// whole; worked out by the installer's own decisions.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/install_plan.h"
#include "catalogue/product_catalogue.h"
#include "desk/computer/dry_run.h"
#include "desk/json.h"

// Texts are in the ANSI code page but for those of asText and asJson.

struct MediaFile {
    std::string name;
    std::string purpose;
    bool present = false;
    std::string damage = {};  ///< what is wrong with a file that is present; empty when it is whole
};

/// One way a run can end: what "Setup.Exe" is handed then.
struct HandOver {
    std::string choice;   ///< as the dialog words it
    std::string windows;  ///< on which this is handed over
    std::string parameters;
};

struct MediaReport {
    std::string productCode;
    std::string productName;
    std::string title;  ///< of the "Install Product" dialog
    std::string path;   ///< the way through the install sequence, in words
    std::string build;
    std::string buildOrigin;  ///< where the build comes from, and why
    std::vector<MediaFile> files;
    std::vector<HandOver> handOvers;
    std::vector<std::string> warnings;  ///< what is allowed, and seldom meant
    std::vector<std::string> problems;  ///< beyond missing and damaged files

    [[nodiscard]] bool isComplete() const;
};

/// What a file that is to be read on the media looks like.
struct FileState {
    bool present = false;
    std::string damage = {};  ///< of a file that is present; empty when it is whole
};

/// A file that a run reads; nothing in `content` when it is there and cannot be read.
struct NamedFile {
    bool present = false;
    std::optional<std::string> content = {};
};

/// What is asked about.
struct Media {
    std::string installer;  ///< the executable's content
    /// The file of this name, letter case ignored, in the installer's own folder.
    std::function<NamedFile(const std::string& name)> besideInstaller;
    std::function<FileState(const std::string& name)> onMedia;
    bool installerIsOnMedia = true;  ///< its folder is the media folder
    std::string directory;           ///< the "-dir" to come
    std::string requiredBuild;       ///< empty: any
};

/// The program folders in the report are those of a machine without other versions. Fills the
/// catalogue's values from the product-data file, as the run would.
[[nodiscard]] MediaReport examineMedia(const Media& media, CProductData& catalogue);

/// What a dry run needs to know of the media; the files are those that the report has found.
[[nodiscard]] DryRunMedia dryRunMedia(const Media& media, const MediaReport& report);

/// In words, what a plan does.
[[nodiscard]] std::string routeInWords(const InstallPlan& plan);

/// What a plan needs on the media, not looked for yet.
[[nodiscard]] std::vector<MediaFile> neededFiles(const InstallPlan& plan);

/// One line for each finding, and "complete" or "NOT COMPLETE" at the end; UTF-8.
[[nodiscard]] std::string asText(const MediaReport& report);
[[nodiscard]] Json asJson(const MediaReport& report);
