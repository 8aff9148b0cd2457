#include "module/administrator.h"

#include "base/owned.h"

namespace tidewell {

namespace {

constexpr DWORD kGroupsCapacity = 1024;  // bytes

struct TokenTraits {
    using Value = HANDLE;
    static Value none() noexcept { return nullptr; }
    static void close(Value token) noexcept { CloseHandle(token); }
};

struct SidTraits {
    using Value = PSID;
    static Value none() noexcept { return nullptr; }
    static void close(Value sid) noexcept { FreeSid(sid); }
};

Owned<SidTraits> administratorsSid() {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    PSID sid = nullptr;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0,
                                  0, 0, 0, 0, &sid))
        return {};
    return Owned<SidTraits>(sid);
}

}  // namespace

bool IsAdministrator() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return false;
    const Owned<TokenTraits> token(opened);

    alignas(TOKEN_GROUPS) BYTE buffer[kGroupsCapacity];
    DWORD size = sizeof buffer;
    if (!GetTokenInformation(token.get(), TokenGroups, buffer, sizeof buffer, &size)) return false;
    const Owned<SidTraits> administrators = administratorsSid();
    if (!administrators) return false;

    const auto& groups = *reinterpret_cast<const TOKEN_GROUPS*>(buffer);
    for (DWORD i = 0; i < groups.GroupCount; ++i) {
        if (EqualSid(groups.Groups[i].Sid, administrators.get())) return true;
    }
    return false;
}

}  // namespace tidewell
