// Folders that are made whole or not at all.
#pragma once

#include <filesystem>

/// A folder of its own beside `target`, in which everything is made; it goes with the object.
/// Throws Refusal when it cannot be made.
class StagingFolder {
  public:
    explicit StagingFolder(const std::filesystem::path& target);
    ~StagingFolder();
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    /// Puts `made`, which lies within the folder, in the place of `target`, which need not exist.
    /// Throws Refusal, with an existing `target` as it was, when that fails.
    void put(const std::filesystem::path& made, const std::filesystem::path& target);

    [[nodiscard]] const std::filesystem::path& path() const { return folder; }

  private:
    std::filesystem::path folder;
};

/// Throws Refusal once the user or the system has asked the program to end, which it does not do
/// by itself while there is a StagingFolder: to be called now and then.
void stopWhenAsked();

/// Makes a folder with those that lead to it. Throws Refusal.
void makeFolder(const std::filesystem::path& folder);
