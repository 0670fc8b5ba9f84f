// The data block of the executable that says which product it installs. The build leaves it
// empty; the stamping tool finds it in the file by its marker and fills the two texts.
//
//   offset  size
//        0    16  stampMarker, no terminator; stands once in the file
//       16     8  product code, zero-terminated, zero-filled
//       24   104  product name, zero-terminated, zero-filled
#pragma once

#include <string>

inline constexpr char stampMarker[] = {'<', '#', 'P', 'R', 'O', 'D', 'U', 'C',
                                       'T', '-', 'S', 'T', 'A', 'M', 'P', '>'};

struct StampedIdentity {
    char marker[16];
    char productCode[8];    ///< terminator included
    char productName[104];  ///< terminator included
};
static_assert(sizeof(StampedIdentity) == 128 && sizeof(stampMarker) == 16);

/// This executable's block. Volatile: its content is not what the compiler saw.
// NOLINTNEXTLINE(bugprone-dynamic-static-initializers): its definition is constinit.
extern volatile StampedIdentity stampedIdentity;

/// The two texts of the block; empty where nothing was stamped.
struct ProductIdentity {
    std::string code;
    std::string name;
};

[[nodiscard]] ProductIdentity readStampedIdentity();
