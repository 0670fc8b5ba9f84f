#include "platform/shell_runner.h"

#include "platform/computer.h"

namespace {

/// A code of 0 stands for none.
struct FailureMessage {
    std::uint32_t instance;  ///< SE_ERR_ of shellapi.h
    std::uint32_t error;     ///< ERROR_ of winerror.h
    const char* text;        ///< null: nothing is shown
};

constexpr FailureMessage failureMessages[] = {
    {2, 2, nullptr},  // a missing file: the callers report it themselves
    {3, 3, "The specified path was not found."},
    {5, 5, "The operating system denied access to the specified file."},
    {8, 0, "There was not enough memory to complete the operation."},
    {0, 8, "The operating system did not have enough memory or resources to complete the process."},
    {26, 32, "A sharing violation occurred."},
    {27, 0, "The file name association is incomplete or invalid."},
    {28, 0, "The DDE transaction could not be completed because the request timed out."},
    {29, 1156, "The DDE transaction failed."},
    {30, 0,
     "The DDE transaction could not be completed because other DDE transactions were being "
     "processed."},
    {31, 1155,
     "There is no application associated with the given file name extension. This error will also "
     "be returned if you attempt to print a file that is not printable."},
    {32, 1157, "The specified dynamic-link library was not found."},
    {0, 1223, "Operation cancelled by user."},
};

bool launch(Computer& computer, const std::string& file, const std::string& parameters,
            bool waits) {
    if (file.empty() || isMissingProgram(computer, file)) {
        return false;
    }
    const StartResult result =
        waits ? computer.startAndWait(file, parameters) : computer.start(file, parameters);
    const char* const text = result.started ? nullptr : shellFailureMessage(result);
    if (text != nullptr) {
        computer.showMessage({.text = text, .owner = MessageOwner::None, .title = "Error"});
    }
    return result.started;
}

}  // namespace

bool isMissingProgram(Computer& computer, const std::string& file) {
    const bool quoted = file.size() > 1 && file.front() == '"' && file.back() == '"';
    const std::string path = quoted ? file.substr(1, file.size() - 2) : file;
    return isFullPath(path) && !computer.isListed(path) && !computer.isListed(path + ".exe");
}

const char* shellFailureMessage(const StartResult& failure) {
    for (const FailureMessage& message : failureMessages) {
        if (message.instance != 0 && message.instance == failure.instance) {
            return message.text;
        }
    }
    for (const FailureMessage& message : failureMessages) {
        if (message.error != 0 && message.error == failure.lastError) {
            return message.text;
        }
    }
    return "Unknown ShellExecute error !";
}

bool launch(Computer& computer, const std::string& file, const std::string& parameters) {
    return launch(computer, file, parameters, false);
}

bool launchAndWait(Computer& computer, const std::string& file, const std::string& parameters) {
    return launch(computer, file, parameters, true);
}
