/* A program of somebody else's, which knows of the library what its header says: it calls the functions as it
 * is linked with them, and as it finds them by their names. */
#include "tidewell.h"

#include <stdio.h>
#include <string.h>

#define DATA_SIZE 1000
#define RESOURCE_SIZE 300
#define PADDING 84
#define PACKED_SIZE (128 + 1024 + RESOURCE_SIZE + PADDING)

static int failures;

#define CHECK(condition)                                           \
    do {                                                           \
        if (!(condition)) {                                        \
            printf("%s:%d: %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                            \
        }                                                          \
    } while (0)

struct Library {
    TidewellCreateMacBinaryFile createMacBinaryFile;
    TidewellExtractOriginalMacFile extractOriginalMacFile;
    TidewellUninstInitialize uninstInitialize;
    TidewellUninstUnInitialize uninstUnInitialize;
};

static char folder[MAX_PATH];

static void fillFile(const char* name, const void* start, size_t startSize, char rest, size_t size) {
    FILE* const file = fopen(name, "wb");
    CHECK(file != NULL);
    if (file == NULL) return;
    fwrite(start, 1, startSize, file);
    for (; startSize < size; ++startSize)
        fputc(rest, file);
    CHECK(fclose(file) == 0);
}

/* Whether the file has, from `offset` on, this text and `rest` after it, and `size` characters in all. */
static int holds(const char* name, long offset, const char* text, int rest, long size) {
    FILE* const file = fopen(name, "rb");
    int right = file != NULL && fseek(file, offset, SEEK_SET) == 0;
    for (; right && offset < size; ++offset)
        right = fgetc(file) == (*text != '\0' ? *text++ : rest);
    right = right && fgetc(file) == EOF;
    if (file != NULL) fclose(file);
    return right;
}

/* As NTFS keeps a Mac file; a system that keeps streams as files of their own shows them in the folder. */
static void makeMacFile(void) {
    static const char information[24] = "AFP\0\0\0\1\0\0\0\0\0\0\0\0\0TEXTttxt";
    fillFile("OUTSIDE.TXT", "", 0, 'd', DATA_SIZE);
    fillFile("OUTSIDE.TXT:AFP_Resource", "", 0, 'r', RESOURCE_SIZE);
    fillFile("OUTSIDE.TXT:AFP_AfpInfo", information, sizeof information, 0, 60);
}

static void removeMacFile(void) {
    DeleteFileA("OUTSIDE.TXT");
    DeleteFileA("OUTSIDE.TXT:AFP_Resource");
    DeleteFileA("OUTSIDE.TXT:AFP_AfpInfo");
}

static int questions;

static BOOL CALLBACK answerNo(HWND window, LPARAM unused) {
    (void)unused;
    if (!IsWindowVisible(window) || GetDlgItem(window, IDNO) == NULL) return TRUE;
    ++questions;
    PostMessageA(window, WM_COMMAND, IDNO, 0);
    return FALSE;
}

static void CALLBACK lookForQuestion(HWND window, UINT message, UINT_PTR timer, DWORD time) {
    (void)window, (void)message, (void)timer, (void)time;
    EnumThreadWindows(GetCurrentThreadId(), answerNo, 0);
}

static void checkErrors(const struct Library* library) {
    DWORD flags = 0;
    TidewellProgress* none = NULL;
    CHECK(library->createMacBinaryFile(NULL, "OUTSIDE.TXT", NULL, &none) == ERROR_INVALID_PARAMETER);
    CHECK(library->createMacBinaryFile(NULL, "OUTSIDE.TXT", "OTHER.TXT:stream", NULL) == ERROR_INVALID_NAME);
    CHECK(library->extractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, NULL, &none) ==
          ERROR_INVALID_PARAMETER);
    CHECK(library->extractOriginalMacFile(NULL, "OUTSIDE.TXT", folder, &flags, NULL) == ERROR_INVALID_DATA);
    CHECK(GetFileAttributesA("OUTSIDE.BIN") == INVALID_FILE_ATTRIBUTES);
    CHECK(flags == 0);
}

static void checkRoundTrip(const struct Library* library) {
    DWORD flags = 0;
    TidewellProgress* none = NULL;
    UINT_PTR timer;
    CHECK(library->createMacBinaryFile(NULL, "OUTSIDE.TXT", "OUTSIDE.BIN", &none) == 0);
    CHECK(holds("OUTSIDE.BIN", PACKED_SIZE - PADDING, "", 0, PACKED_SIZE));
    removeMacFile();
    CHECK(library->extractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, &flags, &none) == 0);
    CHECK(holds("OUTSIDE.TXT", 0, "", 'd', DATA_SIZE));
    CHECK(holds("OUTSIDE.TXT:AFP_Resource", 0, "", 'r', RESOURCE_SIZE));
    CHECK(holds("OUTSIDE.TXT:AFP_AfpInfo", 16, "TEXTttxt", 0, 60));

    fillFile("OUTSIDE.TXT", "", 0, 'x', 5);
    questions = 0;
    timer = SetTimer(NULL, 0, 10, lookForQuestion);
    CHECK(library->extractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, &flags, NULL) == 0);
    CHECK(questions > 0);
    CHECK(holds("OUTSIDE.TXT", 0, "", 'x', 5));
    questions = 0;
    flags = TIDEWELL_REPLACE_ALL;
    CHECK(library->extractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, &flags, NULL) == 0);
    KillTimer(NULL, timer);
    CHECK(questions == 0);
    CHECK(holds("OUTSIDE.TXT", 0, "", 'd', DATA_SIZE));
    DeleteFileA("OUTSIDE.BIN");
}

static void checkLibrary(const struct Library* library) {
    makeMacFile();
    checkErrors(library);
    checkRoundTrip(library);
    removeMacFile();
    CHECK(library->uninstInitialize() == 0);
    CHECK(library->uninstUnInitialize() == 0);
}

/* A function's address as the type of a function, which C has no word for. */
static void find(HMODULE module, const char* name, void* function) {
    FARPROC const found = GetProcAddress(module, name);
    CHECK(found != NULL);
    memcpy(function, &found, sizeof found);
}

int main(void) {
    struct Library library = {CreateMacBinaryFile, ExtractOriginalMacFile, UninstInitialize,
                              UninstUnInitialize};
    TidewellDllCanUnloadNow canUnloadNow;
    HMODULE const module = LoadLibraryA("TIDEWELL.DLL");
    CHECK(module != NULL);
    if (module == NULL) return 1;
    GetCurrentDirectoryA(sizeof folder, folder);
    checkLibrary(&library);

    find(module, "CreateMacBinaryFile", &library.createMacBinaryFile);
    find(module, "ExtractOriginalMacFile", &library.extractOriginalMacFile);
    find(module, "UninstInitialize", &library.uninstInitialize);
    find(module, "UninstUnInitialize", &library.uninstUnInitialize);
    find(module, "DllCanUnloadNow", &canUnloadNow);
    checkLibrary(&library);
    CHECK(canUnloadNow() == S_OK);
    FreeLibrary(module);
    return failures != 0;
}
