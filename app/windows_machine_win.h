#pragma once

#include "app/machine.h"

/// The real computer. Nothing of Windows is decided here: each operation hands on to the file that
/// touches it.
class WindowsMachine : public Machine {
  public:
    /// Before anything else of the program: restricts where libraries are looked for, takes over
    /// the system's code page and readies the controls that dialogs have.
    WindowsMachine();

    [[nodiscard]] OperatingSystemFacts operatingSystem() override;
    [[nodiscard]] bool isWow64() override;
    [[nodiscard]] std::string programFilesFolder() override;
    [[nodiscard]] std::unique_ptr<KeyReader> localMachine() override;

    [[nodiscard]] std::string programPath() override;
    [[nodiscard]] PathKind pathKind(const std::string& path) override;
    [[nodiscard]] bool isListed(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> fileContent(const std::string& path) override;
    [[nodiscard]] bool fileVersion(const std::string& path, std::string& text) override;
    [[nodiscard]] std::uint32_t copyFile(const std::string& source,
                                         const std::string& target) override;

    [[nodiscard]] StartResult start(const std::string& file,
                                    const std::string& parameters) override;
    [[nodiscard]] StartResult startAndWait(const std::string& file,
                                           const std::string& parameters) override;
    [[nodiscard]] std::uint32_t stopRunning(const std::string& fileName,
                                            const std::string& path) override;
    void pause(std::uint32_t milliseconds) override;

    bool showMessage(const Message& message) override;

    [[nodiscard]] std::vector<std::string> arguments() override;
    [[nodiscard]] ProductIdentity stampedIdentity() override;
    [[nodiscard]] bool isAdministrator() override;
    [[nodiscard]] SystemTime currentTime() override;

    void offerRemoval(
        const std::vector<InstalledProduct>& products,
        const std::function<void(const std::vector<std::string>& tickedNames)>& remove) override;
    [[nodiscard]] std::optional<unsigned> askProductType(
        const ProductTypeQuestion& question) override;
    void dispatchPendingMessage() override;

    void appendToLog(const std::string& line) override;
};
