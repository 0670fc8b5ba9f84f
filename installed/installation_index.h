// The installations recorded in the maker's registry trees, and questions to them.
#pragma once

#include <vector>

#include "installed/installation_record.h"
#include "platform/computer.h"

// The maker's registry trees, below HKEY_LOCAL_MACHINE; the older one is that of an earlier
// generation of installers.
inline constexpr char makerTree[] = "Software\\Halvick Test Equipment\\";
inline constexpr char olderMakerTree[] = "Software\\HVQ\\Tressle Analyzer\\";

/// Which field a search compares. Any other number compares none. All but programFolder are for the
/// product line.
namespace installation_selector {
inline constexpr int path = 0;  ///< backslashes at both ends do not count
inline constexpr int productId = 1;
inline constexpr int productName = 2;
inline constexpr int programFolder = 3;
inline constexpr int temporaryReference = 5;
}  // namespace installation_selector

/// What the records of a tree become in the index.
enum class MergeMode { Current, Legacy };

/// The installations recorded in the maker's registry tree. Reports nothing; why a walk failed
/// is in walkError.
class InstallationIndex {
  public:
    /// Reads from `computer`, which outlives the index; nothing before it is asked.
    explicit InstallationIndex(Computer& computer) : computer(&computer) {}

    /// Reads the trees anew. False when they hold no installation.
    bool load(bool includeLegacy);

    /// Reads one tree below HKEY_LOCAL_MACHINE into `read` and `extras` (emptied first) and
    /// merges the records into the index. Then every record of the index gets the version that its
    /// analyser executable has; what an installation wrote about its version is not trusted. False
    /// when the index holds no record.
    bool readTree(const std::string& subkeyPath, std::vector<InstallationRecord>& read,
                  FieldMap& extras, MergeMode mode);

    /// The field (letter case ignored) of the installation at `position`; empty when there is no
    /// such installation or field. Loads an empty index first, legacy tree included. For the
    /// product line.
    [[nodiscard]] std::string field(std::size_t position, std::string_view name);

    /// The positions of the installations whose field equals `value` (letter case ignored), last
    /// first; `selector` is one of installation_selector. False when there are none, and at once
    /// when `value` is empty. Loads an empty index first, legacy tree included.
    [[nodiscard]] bool find(std::string_view value, int selector,
                            std::vector<std::size_t>& matches);

    /// The version of the installation's analyser executable; `version` is empty when there is
    /// none. False when no executable has a version resource.
    [[nodiscard]] bool readExecutableVersion(const InstallationRecord& record,
                                             std::string& version) const;

    std::vector<InstallationRecord> records;
    // For the product line.
    std::string helperLocation;  ///< where the installation helper is
    std::string commonPath;

  private:
    void loadIfEmpty();

    Computer* computer;
};
