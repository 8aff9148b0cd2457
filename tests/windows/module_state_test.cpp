// What the library knows once it is loaded, and what it answers when it is to go.
#include "module/attach.h"

#include "module/administrator.h"
#include "module/unload.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

// The window of another component of the product, on a thread of its own.
class ShellWindow {
  public:
    ShellWindow() : thread_(CreateThread(nullptr, 0, run, this, 0, nullptr)) {
        while (!window_)
            Sleep(1);
    }
    ~ShellWindow() {
        PostMessageA(window_, WM_CLOSE, 0, 0);
        WaitForSingleObject(thread_, 5000);
        CloseHandle(thread_);
    }
    ShellWindow(const ShellWindow&) = delete;
    ShellWindow& operator=(const ShellWindow&) = delete;

    bool endsWithin(DWORD milliseconds) const {
        return WaitForSingleObject(thread_, milliseconds) == WAIT_OBJECT_0;
    }
    WPARAM quitCode() const { return quitCode_; }

  private:
    static LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_DESTROY) PostQuitMessage(99);
        return DefWindowProcA(window, message, wParam, lParam);
    }
    static DWORD WINAPI run(void* self) {
        auto& shell = *static_cast<ShellWindow*>(self);
        WNDCLASSA windowClass = {};
        windowClass.lpfnWndProc = onMessage;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "TDSHELLCLASS";
        RegisterClassA(&windowClass);
        shell.window_ = CreateWindowExA(0, "TDSHELLCLASS", "TDSHELL", WS_POPUP, 0, 0, 10, 10, nullptr,
                                        nullptr, windowClass.hInstance, nullptr);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0)
            DispatchMessageA(&message);
        shell.quitCode_ = message.wParam;
        return 0;
    }

    HANDLE volatile thread_;
    HWND volatile window_ = nullptr;
    WPARAM volatile quitCode_ = 1;
};

}  // namespace

TEST_CASE("Loading finds out about the module, the system and the user") {
    HMODULE const instance = GetModuleHandleA(nullptr);
    AttachModule(instance);
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
    InterlockedIncrement(&ModuleLockCount);
    InterlockedIncrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_FALSE);
    InterlockedDecrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_FALSE);
    InterlockedDecrement(&ModuleLockCount);
    CHECK(DllCanUnloadNow() == S_OK);
}

TEST_CASE("The uninstaller's calls ask the product's window to quit, when there is one") {
    CHECK(UninstInitialize() == 0);
    CHECK(UninstUnInitialize() == 0);
    const ShellWindow shell;
    CHECK(UninstInitialize() == 0);
    CHECK_FALSE(shell.endsWithin(100));
    CHECK(UninstUnInitialize() == 0);
    CHECK(shell.endsWithin(5000));
    CHECK(shell.quitCode() == 0);
}
