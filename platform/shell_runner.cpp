#include "platform/shell_runner.h"

#include "platform/computer.h"

namespace {

struct FailureMessage {
    std::uint32_t code;
    const char* text;  ///< null: nothing is shown
};

constexpr char pathNotFound[] = "The specified path was not found.";
constexpr char accessDenied[] = "The operating system denied access to the specified file.";
constexpr char sharingViolation[] = "A sharing violation occurred.";
constexpr char ddeFailed[] = "The DDE transaction failed.";
constexpr char noAssociation[] =
    "There is no application associated with the given file name extension. This error will also "
    "be returned if you attempt to print a file that is not printable.";
constexpr char libraryNotFound[] = "The specified dynamic-link library was not found.";

// Codes: SE_ERR_ of shellapi.h. A missing file is silent: the callers report it themselves.
constexpr FailureMessage instanceMessages[] = {
    {2, nullptr},
    {3, pathNotFound},
    {5, accessDenied},
    {8, "There was not enough memory to complete the operation."},
    {26, sharingViolation},
    {27, "The file name association is incomplete or invalid."},
    {28, "The DDE transaction could not be completed because the request timed out."},
    {29, ddeFailed},
    {30,
     "The DDE transaction could not be completed because other DDE transactions were being "
     "processed."},
    {31, noAssociation},
    {32, libraryNotFound},
};

// Codes: ERROR_ of winerror.h.
constexpr FailureMessage errorMessages[] = {
    {2, nullptr},
    {3, pathNotFound},
    {5, accessDenied},
    {8, "The operating system did not have enough memory or resources to complete the process."},
    {32, sharingViolation},
    {1155, noAssociation},
    {1156, ddeFailed},
    {1157, libraryNotFound},
    {1223, "Operation cancelled by user."},
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
    for (const FailureMessage& message : instanceMessages) {
        if (message.code == failure.instance) {
            return message.text;
        }
    }
    for (const FailureMessage& message : errorMessages) {
        if (message.code == failure.lastError) {
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
