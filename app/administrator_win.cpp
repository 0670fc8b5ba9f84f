#include "app/administrator_win.h"

#include <memory>
#include <new>

#include "platform/handle_win.h"

namespace {

DWORD openToken(KernelHandle& token) {
    if (OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, FALSE, token.receive())) {
        return ERROR_SUCCESS;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_NO_TOKEN) {
        return error;
    }
    return OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.receive()) ? ERROR_SUCCESS
                                                                               : GetLastError();
}

}  // namespace

DWORD containsAdministrators(const TOKEN_GROUPS& groups, bool& administrator) {
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    SecurityId administrators;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID,
                                  DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0, 0, 0,
                                  administrators.receive())) {
        return GetLastError();
    }
    for (DWORD index = 0; index < groups.GroupCount && !administrator; ++index) {
        administrator = EqualSid(groups.Groups[index].Sid, administrators.get()) != FALSE;
    }
    return ERROR_SUCCESS;
}

DWORD IsAdministrator(bool& administrator) {
    administrator = false;
    KernelHandle token;
    const DWORD openError = openToken(token);
    if (openError != ERROR_SUCCESS) {
        return openError;
    }
    DWORD size = 0;
    if (GetTokenInformation(token.get(), TokenGroups, nullptr, 0, &size)) {
        return 1;  // a token without groups answers nothing
    }
    const DWORD sizeError = GetLastError();
    if (sizeError != ERROR_INSUFFICIENT_BUFFER) {
        return sizeError;
    }
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[size]);
    if (buffer == nullptr) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
    return GetTokenInformation(token.get(), TokenGroups, buffer.get(), size, &size)
               ? containsAdministrators(*reinterpret_cast<const TOKEN_GROUPS*>(buffer.get()),
                                        administrator)
               : GetLastError();
}
