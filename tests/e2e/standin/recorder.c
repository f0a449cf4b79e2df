/* Stands in for a program that another one starts: appends its command line, in UTF-8 and with a line feed, to the file
   of its own name with ".started" at the end, and leaves.

   A file of its own name with ".window" at the end makes it show a window until that is closed; the file's first
   letter says which: "f" a topmost one over the whole screen, any other an ordinary one behind all others. */
#include <stdio.h>
#include <wchar.h>
#include <windows.h>

static wchar_t OwnPath[MAX_PATH];

static HANDLE OpenBeside(const wchar_t* pszEnd, DWORD uAccess, DWORD uHow) {
    wchar_t szPath[MAX_PATH + 16];
    _snwprintf(szPath, sizeof(szPath) / sizeof(szPath[0]), L"%ls%ls", OwnPath, pszEnd);
    return CreateFileW(szPath, uAccess, FILE_SHARE_READ | FILE_SHARE_WRITE, NULL, uHow, FILE_ATTRIBUTE_NORMAL, NULL);
}

static void Record(void) {
    char szLine[8192];
    DWORD uWritten = 0;
    const HANDLE hFile = OpenBeside(L".started", FILE_APPEND_DATA, OPEN_ALWAYS);
    int nLength = WideCharToMultiByte(CP_UTF8, 0, GetCommandLineW(), -1, szLine, sizeof(szLine) - 1, NULL, NULL);
    szLine[nLength - 1] = '\n';
    WriteFile(hFile, szLine, (DWORD)nLength, &uWritten, NULL);
    CloseHandle(hFile);
}

static char WantedWindow(void) {
    char cKind = 0;
    DWORD uRead = 0;
    const HANDLE hFile = OpenBeside(L".window", GENERIC_READ, OPEN_EXISTING);
    if (hFile != INVALID_HANDLE_VALUE) {
        cKind = 'o';
        ReadFile(hFile, &cKind, 1, &uRead, NULL);
        CloseHandle(hFile);
    }
    return cKind;
}

static LRESULT CALLBACK WindowProcedure(HWND hWindow, UINT uMessage, WPARAM wParam, LPARAM lParam) {
    if (uMessage == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(hWindow, uMessage, wParam, lParam);
}

static void ShowWindowUntilClosed(char cKind) {
    const WNDCLASSW Class = {.lpfnWndProc = WindowProcedure,
                             .hInstance = GetModuleHandleW(NULL),
                             .hbrBackground = (HBRUSH)(COLOR_DESKTOP + 1),
                             .lpszClassName = L"StandIn"};
    HWND hWindow = NULL;
    MSG Message;
    RegisterClassW(&Class);
    if (cKind == 'f') {
        hWindow = CreateWindowExW(WS_EX_TOPMOST, L"StandIn", L"full screen", WS_POPUP | WS_VISIBLE, 0, 0,
                                  GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), NULL, NULL,
                                  Class.hInstance, NULL);
        SetForegroundWindow(hWindow);
    } else {
        hWindow = CreateWindowExW(0, L"StandIn", L"ordinary", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, NULL,
                                  NULL, Class.hInstance, NULL);
    }
    while (hWindow != NULL && GetMessageW(&Message, NULL, 0, 0) > 0) {
        DispatchMessageW(&Message);
    }
}

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevious, LPSTR pszCommandLine, int nShow) {
    char cKind = 0;
    (void)hInstance;
    (void)hPrevious;
    (void)pszCommandLine;
    (void)nShow;
    GetModuleFileNameW(NULL, OwnPath, MAX_PATH);
    Record();
    cKind = WantedWindow();
    if (cKind != 0) {
        ShowWindowUntilClosed(cKind);
    }
    return 0;
}
