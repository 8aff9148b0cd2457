/* Stands in for a program that has a library loaded: hold_library LIBRARY TITLE. It says when it has, and
   ends when its window of the class TDSHELLCLASS, which has that title, is asked to quit. */
#include <windows.h>

#include <stdio.h>

int main(int count, char** arguments) {
    WNDCLASSA windowClass;
    MSG message;
    if (count != 3 || LoadLibraryA(arguments[1]) == NULL) return 1;
    ZeroMemory(&windowClass, sizeof windowClass);
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = "TDSHELLCLASS";
    if (RegisterClassA(&windowClass) == 0) return 2;
    if (CreateWindowA("TDSHELLCLASS", arguments[2], 0, 0, 0, 9, 9, NULL, NULL, NULL, NULL) == NULL) return 3;
    puts("loaded");
    fflush(stdout);
    while (GetMessageA(&message, NULL, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
