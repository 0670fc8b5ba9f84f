#include <gtest/gtest.h>

#include "platform/shell_runner.h"

const char pathNotFound[] = "The specified path was not found.";
const char accessDenied[] = "The operating system denied access to the specified file.";
const char sharingViolation[] = "A sharing violation occurred.";
const char ddeFailed[] = "The DDE transaction failed.";
const char noAssociation[] =
    "There is no application associated with the given file name extension. This error will also "
    "be returned if you attempt to print a file that is not printable.";
const char libraryNotFound[] = "The specified dynamic-link library was not found.";
const char unknown[] = "Unknown ShellExecute error !";

TEST(ShellMessages, InstanceResultComesFirst) {
    struct {
        std::uintptr_t instance;
        std::uint32_t error;
        const char* text;
    } const cases[] = {
        {2, 5, nullptr},
        {3, 2, pathNotFound},
        {5, 2, accessDenied},
        {8, 2, "There was not enough memory to complete the operation."},
        {26, 2, sharingViolation},
        {27, 2, "The file name association is incomplete or invalid."},
        {28, 2, "The DDE transaction could not be completed because the request timed out."},
        {29, 2, ddeFailed},
        {30, 2,
         "The DDE transaction could not be completed because other DDE transactions were being "
         "processed."},
        {31, 2, noAssociation},
        {32, 2, libraryNotFound},

        {0, 2, nullptr},
        {0, 3, pathNotFound},
        {0, 5, accessDenied},
        {0, 8,
         "The operating system did not have enough memory or resources to complete the process."},
        {0, 32, sharingViolation},
        {0, 1155, noAssociation},
        {42, 1156, ddeFailed},
        {1, 1157, libraryNotFound},
        {11, 1223, "Operation cancelled by user."},
        {0, 26, unknown},
        {0, 0, unknown},
        {33, 0xFFFFFFFF, unknown},
    };
    for (const auto& row : cases) {
        EXPECT_STREQ(shellFailureMessage(row.instance, row.error), row.text)
            << row.instance << ' ' << row.error;
    }
}
