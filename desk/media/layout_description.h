// The description of media, in JSON; comments are allowed in it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/whole_file.h"

/// Answers what is described for a product: its own entry counts before the general one. `code` is
/// of any letter case; "{code}" in a path is replaced by it in lower case. Paths in the description
/// are relative to its folder. Every operation throws Refusal when an entry is missing or of the
/// wrong kind.
class LayoutDescription {
  public:
    /// `settings` are entries from the command line, "KEY=VALUE" or "CODE.KEY=VALUE", which count
    /// before those of the file; their paths are relative to the current folder; an empty VALUE
    /// takes the entry away. `forAll` are such entries by KEY, which count before every product's
    /// own as well; an empty one says nothing.
    LayoutDescription(std::string descriptionFile, const std::vector<std::string>& settings,
                      const std::map<std::string, std::string>& forAll);

    /// Whether there is an entry for the product, other than false; without a code, for all.
    [[nodiscard]] bool has(const std::string& code, const std::string& key) const;
    /// An entry's text; `otherwise`, unless that is null, where there is none.
    [[nodiscard]] std::string text(const std::string& code, const std::string& key,
                                   const char* otherwise = nullptr) const;
    [[nodiscard]] fs::path path(const std::string& code, const std::string& key) const;
    [[nodiscard]] std::string installerName(const std::string& code) const;
    [[nodiscard]] bool isEnciphered(const std::string& code) const;
    /// Where a file that the run needs lies.
    [[nodiscard]] fs::path source(const std::string& code, const std::string& mediaFile) const;

  private:
    void set(const std::string& setting);
    void requireKnown(const Json& entries, const std::string& where) const;
    [[nodiscard]] Json find(const std::string& code, const std::string& key) const;
    [[noreturn]] void refuse(const std::string& what) const;

    std::string file;
    Json document;
};
