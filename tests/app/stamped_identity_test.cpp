#include "app/stamped_identity.h"

#include <gtest/gtest.h>

namespace {

// The block as the program sees it: before anything was stamped, and stamped to the brim.
TEST(StampedIdentity, IsReadAsItStands) {
    ProductIdentity identity = readStampedIdentity();
    EXPECT_EQ(identity.code + identity.name, "");
    for (std::size_t index = 0; index < sizeof stampMarker; ++index) {
        EXPECT_EQ(stampedIdentity.marker[index], stampMarker[index]);
    }
    for (volatile char& character : stampedIdentity.productCode) {
        character = 'c';
    }
    stampedIdentity.productName[0] = 'n';
    identity = readStampedIdentity();
    EXPECT_EQ(identity.code, "cccccccc");
    EXPECT_EQ(identity.name, "n");
    for (volatile char& character : stampedIdentity.productCode) {
        character = '\0';
    }
    stampedIdentity.productName[0] = '\0';
}

}  // namespace
