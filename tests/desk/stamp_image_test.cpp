#include "desk/executables/stamp_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "tests/desk/sample_executable.h"

constexpr std::size_t optionalHeader = 64 + 24;
constexpr std::size_t blockOffset = 512;
const std::string marker(stampMarker, sizeof stampMarker);
/// With an empty block, an odd number of bytes in all.
const std::string whole =
    executable(marker + std::string(113, '\0') + '\xFD' + std::string(99, '\0'));

TEST(StampImage, FillsTheBlockAndTheChecksum) {
    std::string image = whole;
    stampImage(image, "1k", "A longer name");
    stampImage(image, "1Q", "Model X");  // neither the earlier name nor its checksum counts

    std::string expected = whole;
    expected.replace(blockOffset + 16, 2, "1Q");
    expected.replace(blockOffset + 24, 7, "Model X");
    expected[optionalHeader - 1] = '\x0C';  // loaded whole from a disc and from the net
    // The words that are not zero: 5A4D 0040 4550 0001 00E0 0C00 010B 00E5 0200, the marker's 233C
    // 5250 444F 4355 2D54 5453 4D41 3E50, the texts' 5131 6F4D 6564 206C 0058, and FD00. Their sum
    // 4FEBC, folded to FEC0, and the size of the file, 2E5.
    expected.replace(optionalHeader + 64, 4, "\xA5\x01\x01\x00", 4);
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
    const auto changed = [](std::size_t offset, const std::string& bytes) {
        return std::string(whole).replace(offset, bytes.size(), bytes);
    };
    using Row = std::tuple<const char*, std::string, std::string, std::string>;
    const Row cases[] = {{"no code", whole, "", "X"},
                         {"long code", whole, "12345678", "X"},
                         {"no name", whole, "1k", ""},
                         {"long name", whole, "1k", std::string(104, 'n')},
                         {"empty file", "", "1k", "X"},
                         {"no PE", changed(64, "NE"), "1k", "X"},
                         {"64-bit", changed(optionalHeader, "\x0B\x02"), "1k", "X"},
                         {"header outside", changed(60, "\xFF\xFF\xFF\xFF"), "1k", "X"},
                         {"header cut off", whole.substr(0, optionalHeader + 121), "1k", "X"},
                         {"block cut off", executable(marker + std::string(99, '\0')), "1k", "X"},
                         {"two blocks", whole + marker, "1k", "X"}};
    for (const auto& [reason, given, code, name] : cases) {
        std::string image = given;
        EXPECT_THROW(stampImage(image, code, name), Refusal) << reason;
        EXPECT_EQ(image, given) << reason;
    }
}
