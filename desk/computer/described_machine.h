// A computer that answers from a description and keeps what a run does to it. The installer's own
// code runs on it: to tell a run before it is made, and to test it.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/machine.h"
#include "desk/computer/described_registry.h"

// Texts are in the ANSI code page, as the run has them.

/// A dialog or message box.
struct ShownDialog {
    std::string title = {};
    std::optional<MessageIcon> icon = std::nullopt;
    std::vector<std::string> texts = {};
    std::vector<std::string> rows = {};     ///< of a list, in display order; all are ticked
    std::vector<std::string> choices = {};  ///< option buttons, the first is set; check boxes
    std::vector<std::string> buttons = {};
};

/// One thing that a run did.
struct RunStep {
    enum class Kind {
        Dialog,  ///< showed `dialog`, which was left by `answer`
        Stop,    ///< ended running copies of `program`
        Copy,    ///< copied `program` to `target`
        Log,     ///< appended `target` to the install log
        Wait,    ///< waited `seconds`
        Run,     ///< started `program` and waited for its end
        Launch,  ///< started `program` and left it to itself
    };
    Kind kind;
    ShownDialog dialog = {};
    std::string answer = {};  ///< label of a button
    std::string program = {};
    std::string target = {};
    std::string arguments = {};
    bool succeeded = true;
    std::uint32_t seconds = 0;
    bool whilePrompted = false;  ///< brought about by the prompt for removal, which still stands
};

struct DescribedFile {
    PathKind kind = PathKind::File;
    /// Nothing: it cannot be read.
    std::optional<std::string> content = std::string();
    /// Of the version resource; nothing: it has none.
    std::optional<std::string> version = std::nullopt;
};

/// What starting a program brings about.
struct DescribedProgram {
    std::optional<StartResult> failure = std::nullopt;  ///< nothing: it starts
    std::map<std::string, DescribedFile> writes = {};   ///< by full path
};

class DescribedMachine : public Machine {
  public:
    template <class Value>
    using ByPath = std::map<std::string, Value, KeyPathOrder>;

    // The description.

    std::vector<std::string> commandLine;  ///< the program's path first
    ProductIdentity identity;
    bool administrator = true;
    OperatingSystemFacts facts;
    bool wow64 = true;
    std::string programFiles;
    DescribedRegistry registry;
    ByPath<DescribedFile> files;
    /// Of a path that is not among the files; by default nothing is there.
    std::function<PathKind(const std::string& path)> otherPaths;
    /// By full path; what is not listed starts when there is such a file, and does nothing.
    ByPath<DescribedProgram> programs;
    ByPath<std::uint32_t> copyErrors;  ///< by target
    ByPath<std::uint32_t> stopResults;
    SystemTime time;
    /// What is done with a dialog: labels of choices (rows of a list, check boxes) to be clicked
    /// and of the button that leaves it, the last one. A button that is not there, or none,
    /// cancels.
    std::function<std::vector<std::string>(const ShownDialog& dialog)> user;

    /// What happened, in order.
    std::vector<RunStep> steps;
    int dispatches = 0;  ///< of messages that a closed dialog may have left

    [[nodiscard]] OperatingSystemFacts operatingSystem() override { return facts; }
    [[nodiscard]] bool isWow64() override { return wow64; }
    [[nodiscard]] std::string programFilesFolder() override { return programFiles; }
    [[nodiscard]] std::unique_ptr<KeyReader> localMachine() override {
        return describedLocalMachine(registry);
    }

    [[nodiscard]] std::string programPath() override {
        return commandLine.empty() ? std::string() : commandLine.front();
    }
    [[nodiscard]] PathKind pathKind(const std::string& path) override;
    [[nodiscard]] bool isListed(const std::string& path) override {
        return pathKind(path) != PathKind::Inaccessible;
    }
    [[nodiscard]] std::optional<std::string> fileContent(const std::string& path) override;
    [[nodiscard]] bool fileVersion(const std::string& path, std::string& text) override;
    [[nodiscard]] std::uint32_t copyFile(const std::string& source,
                                         const std::string& target) override;

    [[nodiscard]] StartResult start(const std::string& file,
                                    const std::string& parameters) override {
        return startProgram(RunStep::Kind::Launch, file, parameters);
    }
    [[nodiscard]] StartResult startAndWait(const std::string& file,
                                           const std::string& parameters) override {
        return startProgram(RunStep::Kind::Run, file, parameters);
    }
    [[nodiscard]] std::uint32_t stopRunning(const std::string& fileName,
                                            const std::string& path) override;
    void pause(std::uint32_t milliseconds) override;

    bool showMessage(const Message& message) override;

    [[nodiscard]] std::vector<std::string> arguments() override { return commandLine; }
    [[nodiscard]] ProductIdentity stampedIdentity() override { return identity; }
    [[nodiscard]] bool isAdministrator() override { return administrator; }
    [[nodiscard]] SystemTime currentTime() override { return time; }

    void offerRemoval(const std::vector<InstalledProduct>& products,
                      const std::function<void(const std::string& tickedName)>& remove) override;
    [[nodiscard]] std::optional<unsigned> askProductType(
        const ProductTypeQuestion& question) override;
    void dispatchPendingMessage() override { ++dispatches; }

    void appendToLog(const std::string& line) override {
        keep({.kind = RunStep::Kind::Log, .target = line});
    }

  private:
    StartResult startProgram(RunStep::Kind kind, const std::string& file,
                             const std::string& parameters);
    /// Keeps the dialog and what was done with it.
    std::vector<std::string> show(ShownDialog dialog);
    void keep(RunStep step);

    bool prompted = false;
};
