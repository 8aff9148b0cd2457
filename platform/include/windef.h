// Win32's basic types, with the widths they have on Windows.
#ifndef TIDEWELL_PLATFORM_WINDEF_H
#define TIDEWELL_PLATFORM_WINDEF_H

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK
#define FALSE 0
#define TRUE 1
#define MAX_PATH 260

using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using UINT = uint32_t;
using LONG = int32_t;
using HRESULT = LONG;
using ULONG = uint32_t;
using BOOL = int;
using CHAR = char;
using WCHAR = char16_t;
using SIZE_T = size_t;
using INT_PTR = intptr_t;
using LONG_PTR = intptr_t;
using UINT_PTR = uintptr_t;
using LRESULT = LONG_PTR;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;

using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPDWORD = DWORD*;
using LPBOOL = BOOL*;
using PLONG = LONG*;

using HANDLE = void*;
struct HWND__;
using HWND = HWND__*;
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;
struct HICON__;
using HICON = HICON__*;

struct GUID;
using REFCLSID = const GUID&;
using REFIID = const GUID&;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

#endif
