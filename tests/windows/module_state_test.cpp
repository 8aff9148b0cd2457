// What the library knows once it is loaded, and what it answers when it is to go.
#include "module/system_facts.h"

#include "module/administrator.h"
#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"
#include "pc/pc.h"
#include "tidewell.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <utility>
#include <vector>

using namespace tidewell;

namespace {

// The thread of a window of another component of the product; its exit code is what it quits with.
DWORD WINAPI runShell(void* ready) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "TDSHELLCLASS";
    RegisterClassA(&windowClass);
    const TestWindow window(CreateWindowExA(0, "TDSHELLCLASS", "TDSHELL", WS_POPUP, 0, 0, 10, 10, nullptr,
                                            nullptr, windowClass.hInstance, nullptr));
    SetEvent(ready);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return static_cast<DWORD>(message.wParam);
}

// What the system answers: what is not scripted is the real system's.
enum class Failure { none, groups, sid };
using Group = std::vector<DWORD>;  // sub-authorities of NT's
const Group kAdmins = {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS};
const Group kUsers = {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_USERS};
struct Script {
    std::vector<Group> groups = {};
    Failure failure = Failure::none;
    int doubleByte = -1;
    int sidsHeld = 0;
    HANDLE token = nullptr;
} script;

int WINAPI systemMetrics(int index) {
    static const auto real = systemFunction<decltype(&GetSystemMetrics)>("user32.dll", "GetSystemMetrics");
    return index == SM_DBCSENABLED && script.doubleByte >= 0 ? script.doubleByte : real(index);
}

BOOL WINAPI allocateSid(PSID_IDENTIFIER_AUTHORITY authority, BYTE count, DWORD a, DWORD b, DWORD c, DWORD d,
                        DWORD e, DWORD f, DWORD g, DWORD h, PSID* sid) {
    static const auto real =
        systemFunction<decltype(&AllocateAndInitializeSid)>("advapi32.dll", "AllocateAndInitializeSid");
    CHECK((c | d | e | f | g | h) == 0);
    if (script.failure == Failure::sid) return FALSE;
    ++script.sidsHeld;
    return real(authority, count, a, b, c, d, e, f, g, h, sid);
}

PVOID WINAPI freeSid(PSID sid) {
    static const auto real = systemFunction<decltype(&FreeSid)>("advapi32.dll", "FreeSid");
    --script.sidsHeld;
    return real(sid);
}

BOOL WINAPI tokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS kind, LPVOID buffer, DWORD size,
                             PDWORD needed) {
    static const auto real =
        systemFunction<decltype(&GetTokenInformation)>("advapi32.dll", "GetTokenInformation");
    script.token = token;
    if (script.groups.empty()) return real(token, kind, buffer, size, needed);
    CHECK(kind == TokenGroups);
    CHECK(size == 1024);
    static SID sids[8][2];  // each has room for a second sub-authority
    auto& groups = *static_cast<TOKEN_GROUPS*>(buffer);
    groups.GroupCount = 0;
    for (const auto& authorities : script.groups) {
        SID* const sid = sids[groups.GroupCount];
        *sid = {SID_REVISION, static_cast<BYTE>(authorities.size()), {SECURITY_NT_AUTHORITY}, {}};
        std::copy(authorities.begin(), authorities.end(), sid->SubAuthority);
        // Whether the group is enabled does not matter.
        groups.Groups[groups.GroupCount++] = {sid, 0};
    }
    return script.failure != Failure::groups;
}

}  // namespace

REPLACE_IMPORT(GetSystemMetrics, 4, systemMetrics);
REPLACE_IMPORT(GetTokenInformation, 20, tokenInformation);
REPLACE_IMPORT(AllocateAndInitializeSid, 44, allocateSid);
REPLACE_IMPORT(FreeSid, 4, freeSid);

TEST_CASE("Loading finds out about the module, the system and the user") {
    HMODULE const instance = GetModuleHandleA(nullptr);
    const struct {
        pc::Platform platform;
        Script system;
        bool onNt, admin;
    } rows[] = {
        {pc::Platform::nt, {.groups = {kAdmins}, .doubleByte = 0}, true, true},
        {pc::Platform::nt, {.groups = {kUsers}, .doubleByte = 1}, true, false},
        {pc::Platform::windows95, {.groups = {kAdmins}, .doubleByte = 1}, false, false},
    };
    for (const auto& row : rows) {
        const pc::Pc pc(row.platform);
        script = row.system;
        InitializeModuleState(instance, WindowsFacts);
        CHECK(ModuleInstance == instance);
        CHECK(ResourceModule == instance);
        CHECK(RunningOnNt == row.onNt);
        CHECK(UserIsAdmin == row.admin);
        CHECK((script.token != nullptr) == row.onNt);
        CHECK(DoubleByteCharacters == row.system.doubleByte);
    }
    script = {};
}

TEST_CASE("An administrator is who has the group among all groups, and can be asked") {
    const std::pair<Script, bool> rows[] = {
        {{{kUsers, {1}, kAdmins}}, true},      {{{kAdmins, kUsers}}, true},
        {{{kUsers, {544}, {544, 32}}}, false}, {{{{}}}, false},
        {{{kAdmins}, Failure::groups}, false}, {{{kAdmins}, Failure::sid}, false},
    };
    for (const auto& [system, isAdministrator] : rows) {
        script = system;
        CHECK(IsAdministrator() == isAdministrator);
        CHECK(script.sidsHeld == 0);
        DWORD flags = 0;
        CHECK_FALSE(GetHandleInformation(script.token, &flags));
    }
    script = {};
    // The only user here belongs to the group.
    CHECK(IsAdministrator());
}

TEST_CASE("The library may be unloaded when nothing holds it") {
    CHECK(DllCanUnloadNow() == S_OK);
    InterlockedIncrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_FALSE);
    InterlockedDecrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_OK);
}

TEST_CASE("The uninstaller's calls ask the product's window to quit, when there is one") {
    CHECK(UninstUnInitialize() == 0);

    HANDLE const ready = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HANDLE const shell = CreateThread(nullptr, 0, runShell, ready, 0, nullptr);
    REQUIRE(WaitForSingleObject(ready, 10000) == WAIT_OBJECT_0);
    CHECK(UninstInitialize() == 0);
    CHECK(WaitForSingleObject(shell, 50) == WAIT_TIMEOUT);
    CHECK(UninstUnInitialize() == 0);
    CHECK(WaitForSingleObject(shell, 10000) == WAIT_OBJECT_0);
    DWORD code = STILL_ACTIVE;
    GetExitCodeThread(shell, &code);
    CHECK(code == 0);
    CloseHandle(shell);
    CloseHandle(ready);
}
