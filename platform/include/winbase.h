// Files, memory, modules, time and messages, as Win32 declares them.
#ifndef TIDEWELL_PLATFORM_WINBASE_H
#define TIDEWELL_PLATFORM_WINBASE_H

#include <windef.h>

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-1)))
#define INVALID_FILE_SIZE 0xFFFFFFFFu
#define INVALID_SET_FILE_POINTER 0xFFFFFFFFu
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFFu

#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 0x00000001u
#define FILE_SHARE_WRITE 0x00000002u
#define CREATE_NEW 1u
#define CREATE_ALWAYS 2u
#define OPEN_EXISTING 3u
#define OPEN_ALWAYS 4u
#define FILE_ATTRIBUTE_READONLY 0x00000001u
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010u
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020u
#define FILE_ATTRIBUTE_NORMAL 0x00000080u
#define FILE_BEGIN 0u
#define FILE_CURRENT 1u
#define FILE_END 2u

#define MEM_COMMIT 0x00001000u
#define MEM_RESERVE 0x00002000u
#define MEM_RELEASE 0x00008000u
#define PAGE_READWRITE 0x04u
#define HEAP_ZERO_MEMORY 0x00000008u

#define VER_PLATFORM_WIN32_WINDOWS 1u
#define VER_PLATFORM_WIN32_NT 2u

#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200u
#define FORMAT_MESSAGE_FROM_HMODULE 0x00000800u
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000u
#define FORMAT_MESSAGE_ARGUMENT_ARRAY 0x00002000u

#define CP_ACP 0u
#define MB_ERR_INVALID_CHARS 0x00000008u

struct OVERLAPPED;
using LPOVERLAPPED = OVERLAPPED*;
struct SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CHAR szCSDVersion[128];
};
using LPOSVERSIONINFOA = OSVERSIONINFOA*;

extern "C" {
// The declarations come from the same list as the implementation, so that the two cannot drift apart.
#define PC_CALL(kind, result, name, stackBytes, parameters, arguments) result WINAPI name parameters;
#include <win32_calls.inc>
#undef PC_CALL

DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD error);
HANDLE WINAPI GetProcessHeap();
// The program itself, for a null name.
HMODULE WINAPI GetModuleHandleA(LPCSTR name);
// Only system texts without inserts, FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, and messages
// of the library with texts as inserts, FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ARGUMENT_ARRAY.
DWORD WINAPI FormatMessageA(DWORD flags, LPCVOID source, DWORD id, DWORD language, LPSTR buffer,
                            DWORD capacity, void* arguments);
}

#endif
