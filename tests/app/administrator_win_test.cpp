#include "app/administrator_win.h"

#include <lm.h>

#include <algorithm>
#include <vector>

#include "platform/handle_win.h"
#include "tests/rows.h"
#include "tools/run_stage/systems_win.h"

namespace {

struct Id {
    explicit Id(WELL_KNOWN_SID_TYPE type) {
        DWORD size = sizeof bytes;
        EXPECT_TRUE(CreateWellKnownSid(type, nullptr, bytes, &size));
    }
    BYTE bytes[SECURITY_MAX_SID_SIZE];
} administrators(WinBuiltinAdministratorsSid), users(WinBuiltinUsersSid);

// As administrator counts who is in the group in any way: enabled, not enabled, for denial only.
TEST(Administrator, IsWhoseGroupsHoldTheGroup) {
    using Groups = std::vector<SID_AND_ATTRIBUTES>;
    expectRows<Groups, bool>(
        {{{}, false},
         {{{users.bytes, SE_GROUP_ENABLED}}, false},
         {{{administrators.bytes, 0}, {users.bytes, SE_GROUP_ENABLED}}, true},
         {{{users.bytes, 0}, {administrators.bytes, SE_GROUP_USE_FOR_DENY_ONLY}}, true}},
        [](const Groups& groups) {
            // Behind the end stands the administrators' group.
            std::vector<TOKEN_GROUPS> list(groups.size() + 1);  // each has room for one
            TOKEN_GROUPS& tokenGroups = list.front();
            tokenGroups.GroupCount = static_cast<DWORD>(groups.size());
            std::copy(groups.begin(), groups.end(), tokenGroups.Groups);
            tokenGroups.Groups[groups.size()].Sid = administrators.bytes;
            bool administrator = false;
            EXPECT_EQ(containsAdministrators(tokenGroups, administrator), DWORD{ERROR_SUCCESS});
            return administrator;
        });
}

/// "yes" or "no" and the error code, while the thread has a copy of this token at this level.
std::string answerUnder(HANDLE token, SECURITY_IMPERSONATION_LEVEL level) {
    KernelHandle copy;
    EXPECT_TRUE(DuplicateTokenEx(token, TOKEN_ALL_ACCESS, nullptr, level, TokenImpersonation,
                                 copy.receive()));
    EXPECT_TRUE(SetThreadToken(nullptr, copy.get()));
    bool administrator = false;
    const DWORD error = IsAdministrator(administrator);
    RevertToSelf();
    return (administrator ? "yes " : "no ") + std::to_string(error);
}

// The tests run as one.
TEST(Administrator, IsToldByTheTokenOfTheThreadElseOfTheProcess) {
    bool administrator = false;
    EXPECT_EQ(IsAdministrator(administrator), DWORD{ERROR_SUCCESS});
    EXPECT_TRUE(administrator);

    SID_AND_ATTRIBUTES denied = {administrators.bytes, 0};
    KernelHandle process, restricted;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, process.receive());
    CreateRestrictedToken(process.get(), 0, 1, &denied, 0, nullptr, 0, nullptr,
                          restricted.receive());
    EXPECT_EQ(answerUnder(restricted.get(), SecurityImpersonation), "yes 0");
    // A thread's token that nobody may look into: not the process's is taken instead.
    EXPECT_EQ(answerUnder(process.get(), SecurityAnonymous),
              "no " + std::to_string(ERROR_CANT_OPEN_ANONYMOUS));
}

// Of an account that is there for the test alone.
TEST(Administrator, IsNoOtherUser) {
    if (onWine()) {
        GTEST_SKIP() << "Wine knows one user";
    }
    wchar_t name[] = L"installer tests", password[] = L"7x-Qm!kz 4Tw";
    USER_INFO_1 account{};
    account.usri1_name = name;
    account.usri1_password = password;
    account.usri1_priv = USER_PRIV_USER;
    account.usri1_flags = UF_SCRIPT;
    ASSERT_EQ(NetUserAdd(nullptr, 1, reinterpret_cast<BYTE*>(&account), nullptr),
              DWORD{NERR_Success});
    KernelHandle token;
    // ReactOS knows the first kind alone, which Windows may not grant to an account of no group.
    const auto logOn = [&](DWORD kind) {
        return LogonUserW(name, L".", password, kind, LOGON32_PROVIDER_DEFAULT, token.receive());
    };
    const bool loggedOn = logOn(LOGON32_LOGON_INTERACTIVE) || logOn(LOGON32_LOGON_NETWORK);
    const DWORD error = GetLastError();
    NetUserDel(nullptr, name);
    ASSERT_TRUE(loggedOn) << error;
    EXPECT_EQ(answerUnder(token.get(), SecurityImpersonation), "no 0");
}

}  // namespace
