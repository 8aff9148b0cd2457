/*
 * The functions of TIDEWELL.DLL for other programs, in C and C++. A program links with the import library
 * that is built beside the DLL (libtidewell.a), or loads the DLL and finds the functions under their names;
 * for that there is a type of each function, TidewellNAME.
 *
 * Paths are in the system's ANSI code page, full or relative to the program's current folder, and have up to
 * 519 bytes when they are full. ERROR_FILENAME_EXCED_RANGE (206) for longer ones, but for the source of a
 * packing: there is none, then. Results named ERROR_... are Windows error codes, 0 for success; besides those
 * told here a function returns the system's own error. What a function asks and shows, it does on the thread
 * that calls it.
 */
#ifndef TIDEWELL_H
#define TIDEWELL_H

#include <windows.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The library's own: other programs have none. */
typedef struct TidewellProgress TidewellProgress;

/*
 * Packs the Mac file `sourcePath` into the MacBinary file `outputPath`. An output that exists is replaced,
 * and lost even when packing fails after that. The owner is not used. `progressRef` is null or points to a
 * null.
 *
 * Returns 0 and creates nothing for a file without Mac information on a volume that keeps it, under Windows
 * NT. ERROR_INVALID_PARAMETER (87): a path is null, there is no source, or its volume keeps no Mac
 * information. ERROR_NOT_ENOUGH_MEMORY (8). ERROR_SHARING_VIOLATION (32): among others, the output is the
 * source itself. ERROR_HANDLE_EOF (38): the source ends early. ERROR_HANDLE_DISK_FULL (39): less was written
 * than asked for. ERROR_INVALID_NAME (123): the output is a device, or a fork or a stream of a file.
 * ERROR_FILE_TOO_LARGE (223): a fork has 4 GB or more.
 *
 * The source is only read. After an error that follows the creation of the output no output is left; the
 * shell is told only of a complete one.
 */
DWORD WINAPI CreateMacBinaryFile(HWND owner, const char* sourcePath, const char* outputPath,
                                 TidewellProgress** progressRef);
typedef DWORD(WINAPI* TidewellCreateMacBinaryFile)(HWND owner, const char* sourcePath, const char* outputPath,
                                                   TidewellProgress** progressRef);

/* What the extractions of a batch share. Replace all: files are replaced without a question; an extraction
 * sets it when the user answers Yes to All. More follow: the question offers Yes to All and Cancel, too. */
#define TIDEWELL_REPLACE_ALL 1
#define TIDEWELL_MORE_FOLLOW 2

/*
 * Restores the Mac file that `sourcePath` holds (MacBinary in ".bin", BinHex 4.0 in ".hqx", in any case) into
 * the destination folder, under its Mac name. Asks in a window of `owner`, which may be null, before it
 * replaces a file; a file that the user keeps is no error. `flags` points to 0, or to the TIDEWELL_ flags of
 * a batch. `progressRef` is null or points to a null.
 *
 * ERROR_INVALID_PARAMETER (87): one of the other pointers is null. ERROR_INVALID_NAME (123): the
 * destination is a device. ERROR_BAD_PATHNAME (161): it is no folder. ERROR_INVALID_DATA (13): another
 * extension, or no such file by its contents. ERROR_FILE_EXISTS (80): the question has no answer. ERROR_CRC
 * (23): what it holds is damaged. ERROR_HANDLE_EOF (38): it is shorter than it says. ERROR_HANDLE_DISK_FULL
 * (39): less was written than asked for. ERROR_NOT_ENOUGH_MEMORY (8). ERROR_CANCELLED (1223): the user
 * cancels.
 *
 * The source is only read. After an error nothing partial is left; a file that was to be replaced may be
 * gone.
 */
DWORD WINAPI ExtractOriginalMacFile(HWND owner, const char* sourcePath, const char* destinationFolder,
                                    DWORD* flags, TidewellProgress** progressRef);
typedef DWORD(WINAPI* TidewellExtractOriginalMacFile)(HWND owner, const char* sourcePath,
                                                      const char* destinationFolder, DWORD* flags,
                                                      TidewellProgress** progressRef);

/* S_OK when nothing of the library is in use, else S_FALSE. Found by its name only. */
HRESULT WINAPI DllCanUnloadNow(void);
typedef HRESULT(WINAPI* TidewellDllCanUnloadNow)(void);

/*
 * The way of COM to the library's classes, which extend the shell's menus and property sheets. The class
 * object of `classId` by its interface `iid`, IClassFactory or IUnknown; CLASS_E_CLASSNOTAVAILABLE
 * (0x80040111) for another class, E_NOINTERFACE, E_OUTOFMEMORY, E_POINTER for a null `object`. Found by its
 * name only.
 */
HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object);
typedef HRESULT(WINAPI* TidewellDllGetClassObject)(REFCLSID classId, REFIID iid, void** object);

/*
 * Called by the product's uninstaller, before and after its work. The first has nothing to do; the second
 * asks the thread of the product's own window, when there is one, to quit. Both return 0.
 */
DWORD WINAPI UninstInitialize(void);
typedef DWORD(WINAPI* TidewellUninstInitialize)(void);

DWORD WINAPI UninstUnInitialize(void);
typedef DWORD(WINAPI* TidewellUninstUnInitialize)(void);

#ifdef __cplusplus
}
#endif

#endif
