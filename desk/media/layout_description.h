// The description of media, in JSON; comments are allowed in it.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "desk/json.h"

/// A complete description with explanations.
extern const char* const exampleLayoutDescription;

/// Answers what is described for a product: its own entry counts before the general one. `code` is
/// of any letter case; "{code}" in a path is replaced by it in lower case. Paths in the description
/// are relative to its folder. Every operation throws Refusal when an entry is missing or of the
/// wrong kind.
class LayoutDescription {
  public:
    explicit LayoutDescription(const std::string& file);

    [[nodiscard]] std::filesystem::path installer(const std::string& code) const;
    [[nodiscard]] std::string installerName(const std::string& code) const;
    [[nodiscard]] std::string build(const std::string& code) const;
    [[nodiscard]] bool isEnciphered(const std::string& code) const;
    /// Empty: the catalogue's.
    [[nodiscard]] std::string name(const std::string& code) const;
    /// Where a file that the run needs lies.
    [[nodiscard]] std::filesystem::path source(const std::string& code,
                                               const std::string& mediaFile) const;
    /// A folder whose files go to the media, too.
    [[nodiscard]] std::optional<std::filesystem::path> contents(const std::string& code) const;

  private:
    [[nodiscard]] std::optional<std::string> find(const std::string& code,
                                                  const std::string& key) const;
    [[nodiscard]] std::string require(const std::string& code, const std::string& key) const;
    [[nodiscard]] std::filesystem::path path(const std::string& code, std::string text) const;

    std::string file;
    Json document;
};
