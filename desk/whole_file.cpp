#include "desk/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

#include "desk/refusal.h"

namespace {

namespace fs = std::filesystem;

struct Closing {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closing>;

std::string lastReason() {
    return std::generic_category().message(errno);
}

/// Why the file cannot be read; empty when `content` is filled.
std::string tryToRead(const std::string& path, std::string& content) {
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (failure) {
        return failure.message();
    }
    if (!fs::is_regular_file(status)) {
        return fs::is_directory(status) ? "it is a folder; name a file" : "it is no ordinary file";
    }
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        return lastReason();
    }
    char buffer[65536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get())) {
        content.append(buffer, count);
    }
    return std::ferror(file.get()) != 0 ? lastReason() : "";
}

/// Why the file cannot be written; empty when it was.
std::string tryToWrite(const std::string& path, std::string_view content) {
    File file(std::fopen(path.c_str(), "wb"));
    if (!file) {
        return lastReason();
    }
    const bool written =
        std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
    const std::string reason = written ? "" : lastReason();
    // A disk may be found full as late as here.
    return std::fclose(file.release()) != 0 && written ? lastReason() : reason;
}

}  // namespace

std::optional<std::string> readWholeFile(const std::string& path) {
    std::string content;
    return tryToRead(path, content).empty() ? std::optional(std::move(content)) : std::nullopt;
}

std::string readInput(const std::string& path) {
    std::string content;
    if (const std::string reason = tryToRead(path, content); !reason.empty()) {
        throw Refusal("\"" + path + "\" cannot be read: " + reason + '.');
    }
    return content;
}

bool writeWholeFile(const std::string& path, std::string_view content, std::string& error) {
    const auto refuse = [&](const std::string& reason) {
        error = "\"" + path + "\" cannot be written: " + reason + '.';
        return false;
    };
    std::error_code failure;
    // Renaming would take away a device.
    const fs::file_status existing = fs::status(path, failure);
    if (fs::exists(existing) && !fs::is_regular_file(existing)) {
        return refuse(fs::is_directory(existing) ? "it is a folder; name a file"
                                                 : "it is no ordinary file");
    }
    // A name of its own, so that two runs at once do not share it.
    const std::string temporary = path + "." + std::to_string(std::random_device()()) + ".part";
    std::string reason = tryToWrite(temporary, content);
    if (reason.empty()) {
        fs::rename(temporary, path, failure);
        if (!failure) {
            return true;
        }
        reason = failure.message();
    }
    fs::remove(temporary, failure);
    return refuse(reason);
}

void writeOutput(const std::string& path, std::string_view content) {
    const fs::path folder = fs::path(path).parent_path();
    std::error_code failure;
    if (!folder.empty() && !fs::is_directory(folder, failure)) {
        fs::create_directories(folder, failure);
        if (failure) {
            throw Refusal("The folder \"" + folder.string() +
                          "\" cannot be made: " + failure.message() + '.');
        }
    }
    std::string error;
    if (!writeWholeFile(path, content, error)) {
        throw Refusal(error);
    }
}

bool isSameFile(const std::string& left, const std::string& right) {
    std::error_code failure;
    return fs::equivalent(left, right, failure);
}

void refuseSameFile(const std::string& input, const std::string& output) {
    if (isSameFile(input, output)) {
        throw Refusal("\"" + output +
                      "\" is the input, which is not overwritten; name another "
                      "output.");
    }
}
