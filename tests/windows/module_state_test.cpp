// What the library knows once it is loaded, and what it answers when it is to go.
#include "module/system_facts.h"

#include "module/administrator.h"
#include "module/unload.h"
#include "support/modal_windows.h"

#include <doctest/doctest.h>

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

}  // namespace

TEST_CASE("Loading finds out about the module, the system and the user") {
    HMODULE const instance = GetModuleHandleA(nullptr);
    InitializeModuleState(instance, FindSystemFacts());
    CHECK(ModuleInstance == instance);
    CHECK(ResourceModule == instance);
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    CHECK(RunningOnNt == (version.dwPlatformId == VER_PLATFORM_WIN32_NT));
    // The only user here belongs to the group.
    CHECK(UserIsAdmin == RunningOnNt);
    CHECK(IsAdministrator());
    CHECK(DoubleByteCharacters == (GetSystemMetrics(SM_DBCSENABLED) != 0));
}

TEST_CASE("The library may be unloaded when nothing holds it") {
    CHECK(DllCanUnloadNow() == S_OK);
    for (int held = 1; held <= 2; ++held) {
        InterlockedIncrement(&ModuleLockCount);
        CHECK(DllCanUnloadNow() == S_FALSE);
    }
    InterlockedDecrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_FALSE);
    InterlockedDecrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_OK);
}

TEST_CASE("The uninstaller's calls ask the product's window to quit, when there is one") {
    CHECK(UninstInitialize() == 0);
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
