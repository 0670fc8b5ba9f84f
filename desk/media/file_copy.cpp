#include "desk/media/file_copy.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <system_error>
#include <vector>

#include "desk/media/staging.h"
#include "desk/refusal.h"

#ifdef _WIN32
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

constexpr std::size_t chunkSize = 4 << 20;

struct Closing {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closing>;

File openToRead(const fs::path& path) {
    return File(std::fopen(path.string().c_str(), "rb"));
}

/// A line that is written over, on a terminal, once a copy takes more than one chunk.
class Progress {
  public:
    Progress(std::string label, std::uintmax_t size)
        : label(std::move(label)), size(size), shows(isatty(fileno(stderr)) != 0) {}
    ~Progress() {
        if (shown) {
            std::fprintf(stderr, "\r%*s\r", static_cast<int>(label.size()) + 16, "");
        }
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void add(std::size_t count) {
        done += count;
        if (shows && size > chunkSize) {
            shown = true;
            std::fprintf(stderr, "\rcopying %s %3d%%", label.c_str(),
                         static_cast<int>(done * 100 / size));
        }
    }

  private:
    std::string label;
    std::uintmax_t size;
    std::uintmax_t done = 0;
    bool shows;
    bool shown = false;
};

/// Why the bytes cannot be copied; empty when they are.
std::string copyBytes(const fs::path& source, const fs::path& target, Progress& progress) {
    const auto reason = [] { return std::generic_category().message(errno); };
    const File from = openToRead(source);
    if (!from) {
        return reason();
    }
    File to(std::fopen(target.string().c_str(), "wb"));
    if (!to) {
        return reason();
    }
    std::vector<char> chunk(chunkSize);
    while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), from.get())) {
        if (std::fwrite(chunk.data(), 1, count, to.get()) != count) {
            return reason();
        }
        progress.add(count);
        stopWhenAsked();
    }
    if (std::ferror(from.get()) != 0 || std::fclose(to.release()) != 0) {
        return reason();
    }
    return "";
}

}  // namespace

void copyFile(const fs::path& source, const fs::path& target, bool links,
              const std::string& label) {
    std::error_code failure;
    if (links) {
        // A link of a link would not be a file of its own right.
        fs::create_hard_link(fs::canonical(source, failure), target, failure);
        if (!failure) {
            return;
        }
    }
    Progress progress(label, fs::file_size(source, failure));
    const std::string reason = copyBytes(source, target, progress);
    if (!reason.empty()) {
        fs::remove(target, failure);
        throw Refusal("\"" + source.string() + "\" cannot be copied to \"" + target.string() +
                      "\": " + reason + '.');
    }
}

bool isSameContent(const fs::path& left, const fs::path& right) {
    std::error_code failure;
    if (fs::equivalent(left, right, failure) && !failure) {
        return true;
    }
    const std::uintmax_t size = fs::file_size(left, failure);
    if (failure || fs::file_size(right, failure) != size || failure) {
        return false;
    }
    const File one = openToRead(left), other = openToRead(right);
    if (!one || !other) {
        return false;
    }
    std::vector<char> chunk(chunkSize), otherChunk(chunkSize);
    for (std::size_t count; (count = std::fread(chunk.data(), 1, chunkSize, one.get())) != 0;) {
        if (std::fread(otherChunk.data(), 1, chunkSize, other.get()) != count ||
            std::memcmp(chunk.data(), otherChunk.data(), count) != 0) {
            return false;
        }
    }
    return std::ferror(one.get()) == 0;
}
