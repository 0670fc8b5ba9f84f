#include "app/administrator.h"

#include <gtest/gtest.h>

#include "platform/kernel_handle.h"

namespace {

/// What Windows itself says of the process token.
bool isMember() {
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    BOOL member = FALSE;
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, sid, &size);
    CheckTokenMembership(nullptr, sid, &member);
    return member != FALSE;
}

TEST(Administrator, UsesTheProcessTokenWhereTheThreadHasNone) {
    bool administrator = !isMember();
    EXPECT_EQ(IsAdministrator(administrator), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(administrator, isMember());
}

TEST(Administrator, UsesTheThreadsTokenAndReportsItsError) {
    ASSERT_TRUE(ImpersonateSelf(SecurityAnonymous));
    bool administrator = true;
    const DWORD error = IsAdministrator(administrator);
    RevertToSelf();
    // An anonymous token cannot be opened; a platform that opens it all the same has the groups.
    if (error == ERROR_SUCCESS) {
        EXPECT_EQ(administrator, isMember());
    } else {
        EXPECT_EQ(error, DWORD{ERROR_CANT_OPEN_ANONYMOUS});
        EXPECT_FALSE(administrator);
    }
}

TEST(Administrator, GroupThatOnlyDeniesCounts) {
    if (!isMember()) {
        GTEST_SKIP() << "needs an administrator";
    }
    KernelHandle process, restricted, impersonated;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, process.receive()));
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, sid, &size);
    SID_AND_ATTRIBUTES denied = {sid, 0};
    ASSERT_TRUE(CreateRestrictedToken(process.get(), 0, 1, &denied, 0, nullptr, 0, nullptr,
                                      restricted.receive()));
    ASSERT_TRUE(DuplicateTokenEx(restricted.get(), TOKEN_ALL_ACCESS, nullptr, SecurityImpersonation,
                                 TokenImpersonation, impersonated.receive()));
    ASSERT_TRUE(SetThreadToken(nullptr, impersonated.get()));
    bool administrator = false;
    const DWORD error = IsAdministrator(administrator);
    RevertToSelf();
    EXPECT_EQ(error, DWORD{ERROR_SUCCESS});
    EXPECT_TRUE(administrator);
}

}  // namespace
