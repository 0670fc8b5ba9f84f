#include "desk/media/output_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace {

volatile std::sig_atomic_t isAskedToEnd = 0;

extern "C" void noteThatEndIsAsked(int /*signal*/) {
    isAskedToEnd = 1;
}

void handleSignals(void (*handler)(int)) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, handler);
    }
}

}  // namespace

OutputFolder::OutputFolder(const fs::path& given) {
    std::error_code failure;
    const fs::file_status status = fs::status(given, failure);
    if (fs::is_symlink(fs::symlink_status(given, failure)) && !fs::exists(status)) {
        refuse(given, "is a link that leads nowhere; name a folder.");
    }
    if (fs::exists(status) && !fs::is_directory(status)) {
        refuse(given, "is no folder; name another.");
    }
    isNew = !fs::exists(status);
    makeFolder(given);
    folder = fs::canonical(given);
    work = folder / ".installer-tool";
    makeFolder(work);
    // The lock ends with the process, however that ends.
    lock = open((work / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (lock < 0 || flock(lock, LOCK_EX | LOCK_NB) != 0) {
        const std::string reason = errno == EWOULDBLOCK ? "another run is at work in it"
                                                        : std::generic_category().message(errno);
        close(lock);
        refuse(given, "cannot be filled: " + reason + '.');
    }
    restore();
    fs::remove_all(staging(), failure);
    makeFolder(staging());
    handleSignals(noteThatEndIsAsked);
}

OutputFolder::~OutputFolder() {
    std::error_code ignored;
    fs::remove_all(isKept ? staging() : work, ignored);
    if (isNew) {
        fs::remove(folder, ignored);  // when it is empty
    }
    close(lock);
    handleSignals(SIG_DFL);
}

fs::path OutputFolder::resumable(const std::string& settings) const {
    fs::path kept = work / "kept";
    const fs::path noted = work / "settings";
    if (readWholeFile(noted) != settings) {
        fs::remove_all(kept);
        writeOutput(noted, settings);
    }
    makeFolder(kept);
    return kept;
}

/// Puts back what was moved aside and has nothing in its place.
void OutputFolder::restore() {
    const fs::path old = work / "old";
    std::error_code failure;
    for (const fs::directory_entry& entry : fs::directory_iterator(old, failure)) {
        const fs::path place = folder / entry.path().filename();
        if (!fs::exists(fs::symlink_status(place, failure))) {
            fs::rename(entry.path(), place);
        }
    }
    fs::remove_all(old, failure);
}

void OutputFolder::put(const std::vector<std::string>& names) {
    const fs::path old = work / "old";
    makeFolder(old);
    std::vector<std::string> moved;
    const auto moveWhatIsThere = [](const fs::path& from, const fs::path& to) {
        if (fs::exists(fs::symlink_status(from))) {
            fs::rename(from, to);
        }
    };
    try {
        for (const std::string& name : names) {
            moveWhatIsThere(folder / name, old / name);
            moved.push_back(name);
            moveWhatIsThere(staging() / name, folder / name);
        }
    } catch (const fs::filesystem_error& error) {
        for (const std::string& name : moved) {
            std::error_code ignored;
            fs::remove_all(folder / name, ignored);
        }
        restore();
        refuse(error.path1(),
               "cannot be moved into place: " + error.code().message() + "; nothing was changed.");
    }
    isKept = false;
    isNew = false;
}

void stopWhenAsked() {
    if (isAskedToEnd != 0) {
        throw Refusal("The run was broken off; nothing was changed.");
    }
}
