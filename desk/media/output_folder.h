// A folder that a command fills, wholly or not at all.
#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "desk/whole_file.h"

/// Everything is made in a folder within it, ".installer-tool", and moved to its place at the end;
/// so the parent need not be writable, and the folder may be the root of a volume. A link is
/// followed. What a run left that was killed is put right and cleared by the next.
class OutputFolder {
  public:
    /// Makes the folder where there is none. Throws Refusal when that fails, and when another run
    /// is at work in it.
    explicit OutputFolder(const fs::path& given);
    ~OutputFolder();
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// Where everything stands at the end.
    [[nodiscard]] const fs::path& path() const { return folder; }
    /// An empty folder to make it in, under the same names.
    [[nodiscard]] fs::path staging() const { return work / "new"; }

    /// A folder that outlives a failed run and is found again by one with the same settings, once
    /// something in it is worth that.
    [[nodiscard]] fs::path resumable(const std::string& settings) const;
    /// For any thread.
    void keepOnFailure() { isKept = true; }

    /// Moves each name from staging() into place, and removes those that are not in staging().
    /// Throws Refusal, with everything as it was, when one cannot be moved.
    void put(const std::vector<std::string>& names);

  private:
    void restore();

    fs::path folder;
    fs::path work;
    bool isNew = false;
    std::atomic<bool> isKept = false;
    int lock = -1;
};

/// Throws Refusal once the user or the system has asked the program to end, which it does not do
/// by itself while there is an OutputFolder: to be called now and then.
void stopWhenAsked();
