/* Holds a file open until standard input ends: hold.exe PATH none|read
   "none" shares it with nobody; "read" lets others read, but neither write nor delete. Says "held" when it has it. */
#include <stdio.h>
#include <string.h>
#include <windows.h>

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    DWORD dwShare = strcmp(argv[2], "read") == 0 ? FILE_SHARE_READ : 0;
    HANDLE hFile = CreateFileA(argv[1], GENERIC_READ, dwShare, NULL, OPEN_EXISTING, 0, NULL);
    if (hFile == INVALID_HANDLE_VALUE) return 1;
    puts("held");
    fflush(stdout);
    while (getchar() != EOF) {
    }
    CloseHandle(hFile);
    return 0;
}
