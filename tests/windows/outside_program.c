/* A program of somebody else's, which knows of the library what its header says: it calls the functions as it
 * is linked with them, and as it finds them by their names. */
#include "tidewell.h"

#include <stdio.h>
#include <string.h>

#define DATA_SIZE 1000
#define RESOURCE_SIZE 300
#define PACKED_SIZE (128 + 1024 + 384)

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

/* The full path of a file of the test; a few of them can be in use. */
static const char* pathOf(const char* name) {
    static char paths[4][2 * MAX_PATH];
    static int next;
    char* const path = paths[next++ % 4];
    strcpy(path, folder);
    strcat(path, "\\");
    strcat(path, name);
    return path;
}

static void fillFile(const char* name, const void* start, size_t startSize, char rest, size_t size) {
    FILE* const file = fopen(pathOf(name), "wb");
    CHECK(file != NULL);
    if (file == NULL) return;
    fwrite(start, 1, startSize, file);
    for (; startSize < size; ++startSize)
        fputc(rest, file);
    CHECK(fclose(file) == 0);
}

/* How many characters `expected` the file has, which has no others; -1 for any other file. */
static long countIn(const char* name, int expected) {
    FILE* const file = fopen(pathOf(name), "rb");
    long count = 0;
    int character;
    if (file == NULL) return -1;
    while ((character = fgetc(file)) != EOF)
        count = count < 0 || character != expected ? -1 : count + 1;
    fclose(file);
    return count;
}

static int holds(const char* name, long offset, const char* text) {
    FILE* const file = fopen(pathOf(name), "rb");
    char bytes[16];
    size_t size = 0;
    if (file == NULL) return 0;
    if (fseek(file, offset, SEEK_SET) == 0) size = fread(bytes, 1, strlen(text), file);
    fclose(file);
    return size == strlen(text) && memcmp(bytes, text, size) == 0;
}

static long sizeOf(const char* name) {
    WIN32_FIND_DATAA found;
    HANDLE const search = FindFirstFileA(pathOf(name), &found);
    if (search == INVALID_HANDLE_VALUE) return -1;
    FindClose(search);
    return (long)found.nFileSizeLow;
}

/* As NTFS keeps a Mac file; a system that keeps streams as files of their own shows them in the folder. */
static void makeMacFile(void) {
    static const char information[24] = "AFP\0\0\0\1\0\0\0\0\0\0\0\0\0TEXTttxt";
    fillFile("OUTSIDE.TXT", "", 0, 'd', DATA_SIZE);
    fillFile("OUTSIDE.TXT:AFP_Resource", "", 0, 'r', RESOURCE_SIZE);
    fillFile("OUTSIDE.TXT:AFP_AfpInfo", information, sizeof information, 0, 60);
}

static void removeMacFile(void) {
    DeleteFileA(pathOf("OUTSIDE.TXT"));
    DeleteFileA(pathOf("OUTSIDE.TXT:AFP_Resource"));
    DeleteFileA(pathOf("OUTSIDE.TXT:AFP_AfpInfo"));
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
    CHECK(library->createMacBinaryFile(NULL, NULL, pathOf("OUTSIDE.BIN"), NULL) == ERROR_INVALID_PARAMETER);
    CHECK(library->createMacBinaryFile(NULL, pathOf("OUTSIDE.TXT"), NULL, &none) == ERROR_INVALID_PARAMETER);
    CHECK(library->createMacBinaryFile(NULL, pathOf("MISSING.TXT"), pathOf("OUTSIDE.BIN"), NULL) ==
          ERROR_INVALID_PARAMETER);
    CHECK(library->createMacBinaryFile(NULL, pathOf("OUTSIDE.TXT"), pathOf("OTHER.TXT:stream"), NULL) ==
          ERROR_INVALID_NAME);
    CHECK(library->extractOriginalMacFile(NULL, NULL, folder, &flags, NULL) == ERROR_INVALID_PARAMETER);
    CHECK(library->extractOriginalMacFile(NULL, pathOf("OUTSIDE.BIN"), folder, NULL, &none) ==
          ERROR_INVALID_PARAMETER);
    CHECK(library->extractOriginalMacFile(NULL, pathOf("OUTSIDE.TXT"), folder, &flags, NULL) ==
          ERROR_INVALID_DATA);
    CHECK(library->extractOriginalMacFile(NULL, pathOf("OUTSIDE.BIN"), pathOf("OUTSIDE.TXT"), &flags, NULL) ==
          ERROR_BAD_PATHNAME);
    CHECK(sizeOf("OUTSIDE.BIN") == -1);
    CHECK(flags == 0);
}

static void checkRoundTrip(const struct Library* library) {
    DWORD flags = 0;
    TidewellProgress* none = NULL;
    UINT_PTR timer;
    CHECK(library->createMacBinaryFile(NULL, pathOf("OUTSIDE.TXT"), pathOf("OUTSIDE.BIN"), &none) == 0);
    CHECK(sizeOf("OUTSIDE.BIN") == PACKED_SIZE);
    removeMacFile();
    CHECK(library->extractOriginalMacFile(NULL, pathOf("OUTSIDE.BIN"), folder, &flags, &none) == 0);
    CHECK(countIn("OUTSIDE.TXT", 'd') == DATA_SIZE);
    CHECK(countIn("OUTSIDE.TXT:AFP_Resource", 'r') == RESOURCE_SIZE);
    CHECK(holds("OUTSIDE.TXT:AFP_AfpInfo", 16, "TEXTttxt"));

    fillFile("OUTSIDE.TXT", "", 0, 'x', 5);
    questions = 0;
    timer = SetTimer(NULL, 0, 10, lookForQuestion);
    CHECK(library->extractOriginalMacFile(NULL, pathOf("OUTSIDE.BIN"), folder, &flags, NULL) == 0);
    CHECK(questions > 0);
    CHECK(countIn("OUTSIDE.TXT", 'x') == 5);
    questions = 0;
    flags = TIDEWELL_REPLACE_ALL;
    CHECK(library->extractOriginalMacFile(NULL, pathOf("OUTSIDE.BIN"), folder, &flags, NULL) == 0);
    KillTimer(NULL, timer);
    CHECK(questions == 0);
    CHECK(countIn("OUTSIDE.TXT", 'd') == DATA_SIZE);
    DeleteFileA(pathOf("OUTSIDE.BIN"));
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
