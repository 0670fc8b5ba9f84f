#include "desk/executables/stamp_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "app/stamped_identity.h"
#include "desk/refusal.h"

namespace {

constexpr std::size_t optionalHeader = 64 + 24;
constexpr std::size_t blockOffset = 512;
const std::string marker(stampMarker, sizeof stampMarker);

/// The headers of an executable, as far as stamping looks at them, and an empty block.
std::string executable() {
    std::string image(blockOffset + sizeof(StampedIdentity) + 101, '\0');
    image.replace(0, 2, "MZ");
    image[60] = 64;
    image.replace(64, 2, "PE");
    image.replace(optionalHeader, 2, "\x0B\x01");
    return image.replace(blockOffset, marker.size(), marker);
}

TEST(StampImage, FillsTheBlockAndTheChecksum) {
    std::string image = executable();
    stampImage(image, "1k", "A longer name");
    stampImage(image, "1Q", "Model X");

    std::string expected = executable();
    expected.replace(blockOffset + 16, 2, "1Q");
    expected.replace(blockOffset + 24, 7, "Model X");
    expected[optionalHeader - 1] = '\x0C';  // loaded whole from a disc and from the net
    // The words that are not zero: 5A4D 0040 4550 0C00 010B, the marker's 233C 5250 444F 4355 2D54
    // 5453 4D41 3E50, the texts' 5131 6F4D 6564 206C 0058. Their sum 3FDF6, folded to FDF9, and the
    // size of the file, 2E5.
    expected.replace(optionalHeader + 64, 3, "\xDE\x00\x01", 3);
    EXPECT_EQ(image, expected);

    // A checksum that was there before does not count.
    image[optionalHeader + 64] = 1;
    stampImage(image, "1Q", "Model X");
    EXPECT_EQ(image, expected);

    const std::string longest(103, 'n');
    stampImage(image, "1234567", longest);
    EXPECT_EQ(readStamp(image).code + readStamp(image).name, "1234567" + longest);
}

// The program's own block, without a terminator, as another tool might fill it.
TEST(StampImage, EndsItsTextsWithTheirFields) {
    EXPECT_TRUE(std::equal(marker.begin(), marker.end(), stampedIdentity.marker));
    std::fill(std::begin(stampedIdentity.productCode), std::end(stampedIdentity.productCode), 'c');
    std::fill(std::begin(stampedIdentity.productName), std::end(stampedIdentity.productName), 'n');
    const ProductIdentity identity = readStampedIdentity();
    EXPECT_EQ(identity.code + identity.name, std::string(8, 'c') + std::string(104, 'n'));
    stampedIdentity.productCode[0] = '\0';
    stampedIdentity.productName[0] = '\0';
    EXPECT_EQ(readStampedIdentity().code + readStampedIdentity().name, "");
}

TEST(StampImage, Refuses) {
    const std::string whole = executable();
    const auto changed = [&whole](std::size_t offset, const std::string& bytes) {
        return std::string(whole).replace(offset, bytes.size(), bytes);
    };
    using Row = std::tuple<const char*, std::string, std::string, std::string>;
    const Row cases[] = {{"no code", whole, "", "X"},
                         {"long code", whole, "12345678", "X"},
                         {"no name", whole, "1k", ""},
                         {"long name", whole, "1k", std::string(104, 'n')},
                         {"empty file", "", "1k", "X"},
                         {"no MZ", changed(0, "ZM"), "1k", "X"},
                         {"no PE", changed(64, "NE"), "1k", "X"},
                         {"64-bit", changed(optionalHeader, "\x0B\x02"), "1k", "X"},
                         {"header outside", changed(60, "\xFF\xFF\xFF\xFF"), "1k", "X"},
                         {"header cut off", whole.substr(0, optionalHeader + 121), "1k", "X"},
                         {"signed", changed(optionalHeader + 128, {1, 0, 0, 0, 1}), "1k", "X"},
                         {"no block", changed(blockOffset, "?"), "1k", "X"},
                         {"block cut off", whole.substr(0, blockOffset + 100), "1k", "X"},
                         {"two blocks", whole + marker, "1k", "X"}};
    for (const auto& [reason, given, code, name] : cases) {
        std::string image = given;
        EXPECT_THROW(stampImage(image, code, name), Refusal) << reason;
        EXPECT_EQ(image, given) << reason;
    }
}

}  // namespace
