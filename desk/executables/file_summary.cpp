#include "desk/executables/file_summary.h"

#include <openssl/evp.h>

#include <memory>

#include "desk/whole_file.h"

namespace {

class Digest {
  public:
    Digest() { EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr); }
    void add(std::string_view bytes) {
        EVP_DigestUpdate(context.get(), bytes.data(), bytes.size());
    }
    std::string hexadecimal() {
        unsigned char digest[EVP_MAX_MD_SIZE];
        unsigned size = 0;
        EVP_DigestFinal_ex(context.get(), digest, &size);
        std::string text;
        for (unsigned index = 0; index < size; ++index) {
            text += "0123456789abcdef"[digest[index] >> 4];
            text += "0123456789abcdef"[digest[index] & 0xF];
        }
        return text;
    }

  private:
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context{EVP_MD_CTX_new(),
                                                                    EVP_MD_CTX_free};
};

}  // namespace

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
