#include "app/stamped_identity.h"

#include <gtest/gtest.h>

#include <algorithm>

// The block as the program sees it: before anything was stamped, and stamped to the brim.
TEST(StampedIdentity, IsReadAsItStands) {
    EXPECT_EQ(readStampedIdentity().code + readStampedIdentity().name, "");
    EXPECT_TRUE(std::equal(std::begin(stampMarker), std::end(stampMarker), stampedIdentity.marker));
    std::fill(std::begin(stampedIdentity.productCode), std::end(stampedIdentity.productCode), 'c');
    stampedIdentity.productName[0] = 'n';
    EXPECT_EQ(readStampedIdentity().code, "cccccccc");
    EXPECT_EQ(readStampedIdentity().name, "n");
    std::fill(std::begin(stampedIdentity.productCode), std::end(stampedIdentity.productCode), '\0');
    stampedIdentity.productName[0] = '\0';
}
