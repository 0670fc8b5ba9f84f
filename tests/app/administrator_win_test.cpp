#include "app/administrator_win.h"

#include <gtest/gtest.h>

#include "platform/handle_win.h"

namespace {

// The tests run as one.
TEST(Administrator, IsToldByTheTokensGroups) {
    bool administrator = false;
    EXPECT_EQ(IsAdministrator(administrator), DWORD{ERROR_SUCCESS});
    EXPECT_TRUE(administrator);

    // Kept: a group of the thread's token that only denies counts too.
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, sid, &size);
    SID_AND_ATTRIBUTES denied = {sid, 0};
    KernelHandle process, restricted, impersonated;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, process.receive());
    CreateRestrictedToken(process.get(), 0, 1, &denied, 0, nullptr, 0, nullptr,
                          restricted.receive());
    DuplicateTokenEx(restricted.get(), TOKEN_ALL_ACCESS, nullptr, SecurityImpersonation,
                     TokenImpersonation, impersonated.receive());
    ASSERT_TRUE(SetThreadToken(nullptr, impersonated.get()));
    administrator = false;
    EXPECT_EQ(IsAdministrator(administrator), DWORD{ERROR_SUCCESS});
    RevertToSelf();
    EXPECT_TRUE(administrator);
}

}  // namespace
