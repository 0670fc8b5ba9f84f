// What a stamped installer will do with a media folder, worked out by the installer's own
// decisions.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct MediaFile {
    std::string name;
    std::string purpose;
    bool present = false;
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
    std::vector<std::string> problems;  ///< beyond missing files

    bool isComplete() const;
};

/// The content of the file of this name, letter case ignored; nothing when there is none.
using FolderReader = std::function<std::optional<std::string>(const std::string& name)>;

/// `installer` is the executable's content, `besideInstaller` reads its folder, `onMedia` tells
/// what the media folder holds, `directory` is the "-dir" to come. The program folders are those
/// of a machine without other versions.
MediaReport examineMedia(const std::string& installer, const FolderReader& besideInstaller,
                         const std::function<bool(const std::string& name)>& onMedia,
                         const std::string& directory);

std::string asText(const MediaReport& report);
std::string asJson(const MediaReport& report);
