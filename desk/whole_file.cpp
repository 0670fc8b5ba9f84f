#include "desk/whole_file.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <cerrno>
#include <fstream>
#include <memory>
#include <random>
#include <regex>
#include <system_error>

#include "platform/ansi_text.h"

namespace {

std::string lastReason() {
    return std::generic_category().message(errno);
}

class Digest {
  public:
    Digest() { EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr); }
    void add(std::string_view bytes) {
        EVP_DigestUpdate(context.get(), bytes.data(), bytes.size());
    }
    std::string hexadecimal() {
        unsigned char digest[32];
        char text[2 * sizeof digest + 1];
        EVP_DigestFinal_ex(context.get(), digest, nullptr);
        OPENSSL_buf2hexstr_ex(text, sizeof text, nullptr, digest, sizeof digest, '\0');
        return lowerCase(text);
    }

  private:
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context{EVP_MD_CTX_new(),
                                                                    EVP_MD_CTX_free};
};

/// Throws Refusal when something else than an ordinary file is there: a pipe would be waited for,
/// and renaming would take a device away.
void requireOrdinary(const std::string& path, const fs::file_status& status,
                     const std::string& what) {
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        refuse(path, "cannot be " + what +
                         (fs::is_directory(status) ? ": it is a folder; name a file."
                                                   : ": it is no ordinary file."));
    }
}

/// Hands on the bytes of a file in pieces of a mebibyte, the last of them smaller.
template <class Take>
void readInPieces(const std::string& path, Take take) {
    std::error_code ignored;  // opening the file fails for the same reason
    requireOrdinary(path, fs::status(path, ignored), "read");
    std::string piece(1 << 20, '\0');
    std::ifstream file(path, std::ios::binary);
    do {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        if (!file.is_open() || file.bad()) {
            refuse(path, "cannot be read: " + lastReason() + '.');
        }
        take(std::string_view(piece).substr(0, static_cast<std::size_t>(file.gcount())));
    } while (file);
}

}  // namespace

std::string readInput(const std::string& path) {
    std::string content;
    readInPieces(path, [&content](std::string_view piece) { content += piece; });
    return content;
}

std::optional<std::string> readWholeFile(const std::string& path) {
    try {
        return readInput(path);
    } catch (const Refusal&) {
        return std::nullopt;
    }
}

Json readJson(const std::string& file) {
    try {
        return Json::parse(readInput(file), nullptr, true, true);
    } catch (const Json::parse_error& error) {
        refuse(file, "is no JSON: " + reasonOf(error) + '.');
    }
}

std::string reasonOf(const std::exception& error) {
    // "[json.exception.parse_error.101] parse error at line 1, column 2: ...", "[...] (/bits) ..."
    static const std::regex prefix(R"(^\[json\.exception\.\S+ (parse error at )?)");
    return std::regex_replace(error.what(), prefix, "");
}

std::string inLines(const std::string& mark, const Json& texts) {
    std::string lines;
    for (const std::string text : texts) {
        lines += mark + text + '\n';
    }
    return lines;
}

FileSummary summarize(const std::string& file) {
    FileSummary summary;
    Digest digest;
    readInPieces(file, [&](std::string_view piece) {
        if (summary.size == 0) {
            summary.head = piece;
        }
        summary.size += piece.size();
        summary.wordSum += sumOfWords(piece);  // pieces are of even size
        digest.add(piece);
    });
    summary.digest = digest.hexadecimal();
    return summary;
}

std::string sha256(std::string_view bytes) {
    Digest digest;
    digest.add(bytes);
    return digest.hexadecimal();
}

std::uint64_t sumOfWords(std::string_view bytes) {
    std::uint64_t sum = 0;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        sum += static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[index]))
               << (index % 2 * 8);
    }
    return sum;
}

void writeOutput(const std::string& path, std::string_view content) {
    std::error_code failure;
    const fs::file_status existing = fs::status(path, failure);
    requireOrdinary(path, existing, "written");
    if (!fs::exists(existing) && fs::is_symlink(fs::symlink_status(path, failure))) {
        refuse(path, "cannot be written: it is a link that leads nowhere.");
    }
    const fs::path target = fs::exists(existing) ? fs::canonical(path, failure) : fs::path(path);
    if (target.has_parent_path()) {
        makeFolder(target.parent_path());
    }
    // A name of its own, so that two runs at once do not share it.
    const std::string temporary =
        target.string() + "." + std::to_string(std::random_device()()) + ".part";
    std::ofstream file(temporary, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();  // a disk may be found full as late as here
    std::string reason = file ? "" : lastReason();
    if (reason.empty()) {
        fs::rename(temporary, target, failure);
        reason = failure ? failure.message() : "";
    }
    if (!reason.empty()) {
        fs::remove(temporary, failure);
        refuse(path, "cannot be written: " + reason + '.');
    }
}

void refuseSameFile(const std::string& input, const std::string& output) {
    std::error_code failure;
    if (fs::equivalent(input, output, failure)) {
        refuse(output, "is the input, which is not overwritten; name another output.");
    }
}

void makeFolder(const std::string& folder) {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        refuse(folder, "cannot be made: " + failure.message() + '.');
    }
}
