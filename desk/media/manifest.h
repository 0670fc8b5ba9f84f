// Lists of files with their SHA-256 digests, in the form that sha256sum writes and checks.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "desk/whole_file.h"

inline constexpr const char* manifestFile = "MANIFEST.sha256";  ///< of a media folder
inline constexpr const char* checksumsFile = "SHA256SUMS";      ///< of a release

/// Digests by path, whose parts are separated by slashes.
using Digests = std::map<std::string, std::string>;

/// What is wrong with a file of a folder, for people.
struct FileProblem {
    std::string file;  ///< its path within the folder; empty: the folder itself
    std::string what;

    [[nodiscard]] std::string asLine() const { return file.empty() ? what : file + ": " + what; }
    friend void to_json(Json& json, const FileProblem& problem) {
        json = {{"file", problem.file}, {"problem", problem.what}};
    }
};

[[nodiscard]] std::vector<std::string> asLines(const std::vector<FileProblem>& problems);

/// The file of digests.
[[nodiscard]] std::string asList(const Digests& digests);

/// The files of a folder and those below. Links, devices and what cannot be read, which no folder
/// of ours holds, go to `problems`.
[[nodiscard]] std::set<std::string> filesBelow(const fs::path& folder,
                                               std::vector<FileProblem>& problems);

/// Holds a folder against the list in it; the same problem is never told twice.
[[nodiscard]] std::vector<FileProblem> compareWithList(const fs::path& folder,
                                                       const std::string& list);

/// Throws Refusal, which names what would be lost, when the folder holds anything but what its list
/// says, byte for byte. A folder that is empty or not there holds nothing.
void requireReplaceable(const fs::path& folder, const std::string& list);
