#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "installed/installation_index.h"
#include "installed/installation_record.h"

/// What the records of a tree become in the index.
enum class MergeMode { Current, Legacy };

/// The installations recorded in the maker's registry tree. Reports nothing; why a walk failed
/// is in walkError.
class InstallationIndex {
  public:
    /// Reads the trees anew. False when they hold no installation.
    bool load(bool includeLegacy);

    /// Reads one tree below HKEY_LOCAL_MACHINE into `records` and `extras` (emptied first) and
    /// merges the records into the index, each with the version that its analyser executable has;
    /// what an installation wrote about its version is not trusted. False when the index holds no
    /// record.
    bool readTree(const std::string& subkeyPath, std::vector<InstallationRecord>& records,
                  FieldMap& extras, MergeMode mode);

    /// The field (letter case ignored) of the installation at `position`; empty when there is no
    /// such installation or field. Loads an empty index first, legacy tree included.
    [[nodiscard]] std::string field(std::size_t position, std::string_view name);

    /// The positions of the installations whose field equals `value` (letter case ignored), last
    /// first; `selector` is one of installation_selector. False when there are none, and at once
    /// when `value` is empty. Loads an empty index first, legacy tree included.
    [[nodiscard]] bool find(std::string_view value, int selector,
                            std::vector<std::size_t>& matches);

    /// The version of the installation's analyser executable; `version` is empty when there is
    /// none. False when no executable has a version resource.
    [[nodiscard]] static bool readExecutableVersion(const InstallationRecord& record,
                                                    std::string& version);

    std::vector<InstallationRecord> records;
    std::string helperLocation;  ///< where the installation helper is
    std::string commonPath;

  private:
    void loadIfEmpty();
};
