/* A program of somebody else's, which knows of the library what its header says: it calls the functions as it
 * is linked with them, and finds them by their names. */
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

static void checkRoundTrip(void) {
    DWORD flags = 0;
    TidewellProgress* none = NULL;
    UINT_PTR timer;
    CHECK(CreateMacBinaryFile(NULL, "OUTSIDE.TXT", "OTHER.TXT:stream", NULL) == ERROR_INVALID_NAME);
    CHECK(ExtractOriginalMacFile(NULL, "OUTSIDE.TXT", folder, &flags, NULL) == ERROR_INVALID_DATA);
    CHECK(CreateMacBinaryFile(NULL, "OUTSIDE.TXT", "OUTSIDE.BIN", &none) == 0);
    CHECK(holds("OUTSIDE.BIN", PACKED_SIZE - PADDING, "", 0, PACKED_SIZE));
    removeMacFile();
    CHECK(ExtractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, &flags, &none) == 0);
    CHECK(holds("OUTSIDE.TXT", 0, "", 'd', DATA_SIZE));
    CHECK(holds("OUTSIDE.TXT:AFP_Resource", 0, "", 'r', RESOURCE_SIZE));
    CHECK(holds("OUTSIDE.TXT:AFP_AfpInfo", 16, "TEXTttxt", 0, 60));

    fillFile("OUTSIDE.TXT", "", 0, 'x', 5);
    questions = 0;
    timer = SetTimer(NULL, 0, 10, lookForQuestion);
    CHECK(ExtractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, &flags, NULL) == 0);
    CHECK(questions > 0);
    CHECK(holds("OUTSIDE.TXT", 0, "", 'x', 5));
    questions = 0;
    flags = TIDEWELL_REPLACE_ALL;
    CHECK(ExtractOriginalMacFile(NULL, "OUTSIDE.BIN", folder, &flags, NULL) == 0);
    KillTimer(NULL, timer);
    CHECK(questions == 0);
    CHECK(holds("OUTSIDE.TXT", 0, "", 'd', DATA_SIZE));
    DeleteFileA("OUTSIDE.BIN");
}

/* What the program is linked with is found under its name, too, and has the type that is told for that. */
#define CHECK_FOUND(name)                             \
    do {                                              \
        Tidewell##name const linked = name;           \
        CHECK(linked != NULL);                        \
        CHECK(GetProcAddress(module, #name) != NULL); \
    } while (0)

/* COM finds these under their names only. */
static void checkServer(HMODULE module) {
    static const GUID none = {0x4DD19183, 0xACE2, 0x11CF, {0xBB, 0xF2, 0x44, 0x45, 0x53, 0x54, 0, 0}};
    TidewellDllCanUnloadNow canUnloadNow;
    TidewellDllGetClassObject getClassObject;
    void* object = &object;
    FARPROC found = GetProcAddress(module, "DllCanUnloadNow");
    CHECK(found != NULL);
    /* A function's address as the type of a function, which C has no word for. */
    memcpy(&canUnloadNow, &found, sizeof found);
    CHECK(canUnloadNow() == S_OK);
    found = GetProcAddress(module, "DllGetClassObject");
    CHECK(found != NULL);
    memcpy(&getClassObject, &found, sizeof found);
    CHECK(getClassObject(&none, &none, &object) == CLASS_E_CLASSNOTAVAILABLE);
    CHECK(object == NULL);
}

int main(void) {
    HMODULE const module = GetModuleHandleA("TIDEWELL.DLL");
    GetCurrentDirectoryA(sizeof folder, folder);
    makeMacFile();
    checkRoundTrip();
    removeMacFile();
    CHECK(UninstInitialize() == 0);
    CHECK(UninstUnInitialize() == 0);

    CHECK_FOUND(CreateMacBinaryFile);
    CHECK_FOUND(ExtractOriginalMacFile);
    CHECK_FOUND(UninstInitialize);
    CHECK_FOUND(UninstUnInitialize);
    checkServer(module);
    return failures != 0;
}
