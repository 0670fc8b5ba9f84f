// What the installer asks of a computer and does to it, short of talking to its user at length. The
// run adds its dialogs to this (app/machine.h). Windows answers where the installer runs; a
// description answers where a run is told before it is made, and where it is tested.
#pragma once

#include "platform/files.h"
#include "platform/message.h"
#include "platform/operating_system.h"
#include "platform/registry_key.h"
#include "platform/shell_runner.h"

class Computer {
  public:
    virtual ~Computer() = default;
    Computer& operator=(Computer&&) = delete;  // nor is it copied

    // The system.

    [[nodiscard]] virtual OperatingSystemFacts operatingSystem() = 0;
    /// Whether this 32-bit program runs on 64-bit Windows; false where Windows cannot tell.
    [[nodiscard]] virtual bool isWow64() = 0;
    /// The folder of 32-bit programs, without a trailing backslash; empty when it is not known.
    [[nodiscard]] virtual std::string programFilesFolder() = 0;
    /// The root that "HKEY_LOCAL_MACHINE" stands for, in the program's own registry view. Not null.
    [[nodiscard]] virtual std::unique_ptr<KeyReader> localMachine() = 0;

    // Files.

    /// The running program's full path, at most 1023 characters; empty when it is not known.
    [[nodiscard]] virtual std::string programPath() = 0;
    /// By one query of the attributes; whatever makes it fail counts as Inaccessible.
    [[nodiscard]] virtual PathKind pathKind(const std::string& path) = 0;
    /// Whether the folder of `path` lists it: also true of a file that lets nobody look at it, so
    /// that it is found, and then reported as unreadable.
    [[nodiscard]] virtual bool isListed(const std::string& path) = 0;
    /// All bytes of a file of at most maximumFileSize bytes; nothing when it cannot be opened or
    /// read to its end.
    [[nodiscard]] virtual std::optional<std::string> fileContent(const std::string& path) = 0;
    /// "Version " and the FileVersion of the US-English Unicode string table in the file's version
    /// resource; empty when that table or value is missing. False without a version resource.
    [[nodiscard]] virtual bool fileVersion(const std::string& path, std::string& text) = 0;
    /// Overwrites `target`; the copy can be written to and removed, whatever `source` is. Returns
    /// the Windows error code, 0 on success.
    [[nodiscard]] virtual std::uint32_t copyFile(const std::string& source,
                                                 const std::string& target) = 0;

    // Programs.

    /// Starts a program through the shell with the verb "open"; empty `parameters` are none. The
    /// program is left to itself.
    [[nodiscard]] virtual StartResult start(const std::string& file,
                                            const std::string& parameters) = 0;
    /// As start, and returns when the program has ended.
    [[nodiscard]] virtual StartResult startAndWait(const std::string& file,
                                                   const std::string& parameters) = 0;
    /// Stops every process whose executable is called `fileName` and that has loaded `path`, a full
    /// path, both without regard to letter case; one that cannot be stopped is passed over. Returns
    /// the wait's result of the last one stopped, 0 for none (258: it did not end in time), or the
    /// Windows error code of a failed look at the processes.
    [[nodiscard]] virtual std::uint32_t stopRunning(const std::string& fileName,
                                                    const std::string& path) = 0;
    virtual void pause(std::uint32_t milliseconds) = 0;

    // The user.

    /// Waits for the answer. True for Yes.
    virtual bool showMessage(const Message& message) = 0;
};
