/* Looks at the windows of other processes and sends them messages, as told line by line on standard input.

   A line holds a word and its arguments, parted by tabs; the answer is any number of lines of fields parted by tabs and
   a line with a single dot. Text is UTF-8; in it \\, \t, \r and \n are written with a backslash. Handles and numbers
   are decimal. Every message has a minute to be answered.

   windows                        top to bottom: handle, process id, program, class, title, left, top, right, bottom,
                                  extended style, owner, enabled
   children WINDOW                in z-order: handle, id, class, style, extended style, left, top, right, bottom
   (screen), visible, enabled, text send|post WINDOW MESSAGE W L   the result settext WINDOW TEXT gettext WINDOW input
   WINDOW                   of the window's thread: foreground window, active window, window with the focus measure FACE
   HEIGHT WIDTH WEIGHT CHARSET PLACE TEXT height and width that a text needs in a place so many pixels wide, line by
   line broken dots                           dots an inch of the screen */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

#define FIELD_LIMIT 262144
static char Line[FIELD_LIMIT];
static wchar_t Text[FIELD_LIMIT];

static void PrintNumber(long long nNumber) {
    printf("%I64d\t", nNumber);
}

static void PrintText(const wchar_t* pszText) {
    static char szBytes[FIELD_LIMIT * 3];
    WideCharToMultiByte(CP_UTF8, 0, pszText, -1, szBytes, sizeof(szBytes), NULL, NULL);
    for (const char* pszAt = szBytes; *pszAt != '\0'; ++pszAt) {
        const char cAt = *pszAt;
        const char cEscaped = cAt == '\\' ? '\\' : cAt == '\t' ? 't' : cAt == '\r' ? 'r' : cAt == '\n' ? 'n' : '\0';
        if (cEscaped != '\0') {
            putchar('\\');
        }
        putchar(cEscaped != '\0' ? cEscaped : cAt);
    }
    putchar('\t');
}

/* The next field, unescaped in place; an empty one when there is none. */
static char* NextField(char** ppszRest) {
    char* const pszField = *ppszRest;
    char* pszTo = pszField;
    char* pszFrom = pszField;
    while (*pszFrom != '\0' && *pszFrom != '\t') {
        if (*pszFrom == '\\') {
            ++pszFrom;
            *pszTo++ = (char)(*pszFrom == 't' ? '\t' : *pszFrom == 'r' ? '\r' : *pszFrom == 'n' ? '\n' : *pszFrom);
            ++pszFrom;
        } else {
            *pszTo++ = *pszFrom++;
        }
    }
    *ppszRest = *pszFrom == '\t' ? pszFrom + 1 : pszFrom;
    *pszTo = '\0';
    return pszField;
}

static long long NextNumber(char** ppszRest) {
    return _atoi64(NextField(ppszRest));
}

static HWND NextWindow(char** ppszRest) {
    return (HWND)(INT_PTR)NextNumber(ppszRest);
}

static const wchar_t* NextText(char** ppszRest) {
    MultiByteToWideChar(CP_UTF8, 0, NextField(ppszRest), -1, Text, FIELD_LIMIT);
    return Text;
}

static LRESULT Send(HWND hWindow, UINT uMessage, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR uResult = 0;
    SendMessageTimeoutW(hWindow, uMessage, wParam, lParam, SMTO_NORMAL, 60000, &uResult);
    return (LRESULT)uResult;
}

static const wchar_t* TextOf(HWND hWindow) {
    Text[0] = L'\0';
    Send(hWindow, WM_GETTEXT, FIELD_LIMIT, (LPARAM)Text);
    return Text;
}

static void PrintClassAndPlace(HWND hWindow, int bStyle) {
    wchar_t szClass[64] = L"";
    RECT Place = {0, 0, 0, 0};
    GetClassNameW(hWindow, szClass, 64);
    PrintText(szClass);
    if (bStyle) {
        PrintNumber((DWORD)GetWindowLongW(hWindow, GWL_STYLE));
        PrintNumber((DWORD)GetWindowLongW(hWindow, GWL_EXSTYLE));
    } else {
        GetWindowTextW(hWindow, Text, FIELD_LIMIT);
        PrintText(Text);
    }
    GetWindowRect(hWindow, &Place);
    PrintNumber(Place.left);
    PrintNumber(Place.top);
    PrintNumber(Place.right);
    PrintNumber(Place.bottom);
}

static void PrintProgram(DWORD uProcessId) {
    wchar_t szPath[MAX_PATH] = L"";
    DWORD uLength = MAX_PATH;
    const HANDLE hProcess = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, uProcessId);
    if (hProcess != NULL) {
        QueryFullProcessImageNameW(hProcess, 0, szPath, &uLength);
        CloseHandle(hProcess);
    }
    PrintText(szPath);
}

static BOOL CALLBACK PrintWindowLine(HWND hWindow, LPARAM lParam) {
    DWORD uProcessId = 0;
    (void)lParam;
    if (!IsWindowVisible(hWindow)) {
        return TRUE;
    }
    GetWindowThreadProcessId(hWindow, &uProcessId);
    PrintNumber((INT_PTR)hWindow);
    PrintNumber(uProcessId);
    PrintProgram(uProcessId);
    PrintClassAndPlace(hWindow, 0);
    PrintNumber((DWORD)GetWindowLongW(hWindow, GWL_EXSTYLE));
    PrintNumber((INT_PTR)GetWindow(hWindow, GW_OWNER));
    PrintNumber(IsWindowEnabled(hWindow));
    putchar('\n');
    return TRUE;
}

static void PrintChildren(HWND hParent) {
    for (HWND hChild = GetWindow(hParent, GW_CHILD); hChild != NULL; hChild = GetWindow(hChild, GW_HWNDNEXT)) {
        PrintNumber((INT_PTR)hChild);
        PrintNumber(GetDlgCtrlID(hChild));
        PrintClassAndPlace(hChild, 1);
        PrintNumber(IsWindowVisible(hChild) != 0);
        PrintNumber(IsWindowEnabled(hChild) != 0);
        PrintText(TextOf(hChild));
        putchar('\n');
    }
}

static void PrintInput(HWND hWindow) {
    GUITHREADINFO Info = {.cbSize = sizeof(Info)};
    GetGUIThreadInfo(GetWindowThreadProcessId(hWindow, NULL), &Info);
    PrintNumber((INT_PTR)GetForegroundWindow());
    PrintNumber((INT_PTR)Info.hwndActive);
    PrintNumber((INT_PTR)Info.hwndFocus);
    putchar('\n');
}

static void PrintMeasure(char* pszRest) {
    LOGFONTW Font = {0};
    wcsncpy(Font.lfFaceName, NextText(&pszRest), LF_FACESIZE - 1);
    Font.lfHeight = (LONG)NextNumber(&pszRest);
    Font.lfWidth = (LONG)NextNumber(&pszRest);
    Font.lfWeight = (LONG)NextNumber(&pszRest);
    Font.lfCharSet = (BYTE)NextNumber(&pszRest);
    RECT Needed = {0, 0, (LONG)NextNumber(&pszRest), 0};
    const HDC hScreen = GetDC(NULL);
    const HFONT hFont = CreateFontIndirectW(&Font);
    const HGDIOBJ hPrevious = SelectObject(hScreen, hFont);
    DrawTextW(hScreen, NextText(&pszRest), -1, &Needed, DT_CALCRECT | DT_WORDBREAK);
    SelectObject(hScreen, hPrevious);
    DeleteObject(hFont);
    ReleaseDC(NULL, hScreen);
    PrintNumber(Needed.bottom);
    PrintNumber(Needed.right);
    putchar('\n');
}

static void PrintDots(void) {
    const HDC hScreen = GetDC(NULL);
    PrintNumber(GetDeviceCaps(hScreen, LOGPIXELSY));
    putchar('\n');
    ReleaseDC(NULL, hScreen);
}

static void Answer(char* pszRest) {
    const char* const pszWord = NextField(&pszRest);
    if (strcmp(pszWord, "windows") == 0) {
        EnumWindows(PrintWindowLine, 0);
    } else if (strcmp(pszWord, "children") == 0) {
        PrintChildren(NextWindow(&pszRest));
    } else if (strcmp(pszWord, "send") == 0 || strcmp(pszWord, "post") == 0) {
        const HWND hWindow = NextWindow(&pszRest);
        const UINT uMessage = (UINT)NextNumber(&pszRest);
        const WPARAM wParam = (WPARAM)NextNumber(&pszRest);
        const LPARAM lParam = (LPARAM)NextNumber(&pszRest);
        PrintNumber(*pszWord == 's' ? Send(hWindow, uMessage, wParam, lParam)
                                    : PostMessageW(hWindow, uMessage, wParam, lParam));
        putchar('\n');
    } else if (strcmp(pszWord, "settext") == 0) {
        const HWND hWindow = NextWindow(&pszRest);
        PrintNumber(Send(hWindow, WM_SETTEXT, 0, (LPARAM)NextText(&pszRest)));
        putchar('\n');
    } else if (strcmp(pszWord, "gettext") == 0) {
        PrintText(TextOf(NextWindow(&pszRest)));
        putchar('\n');
    } else if (strcmp(pszWord, "input") == 0) {
        PrintInput(NextWindow(&pszRest));
    } else if (strcmp(pszWord, "measure") == 0) {
        PrintMeasure(pszRest);
    } else if (strcmp(pszWord, "dots") == 0) {
        PrintDots();
    }
}

int main(void) {
    SetProcessDPIAware();
    while (fgets(Line, sizeof(Line), stdin) != NULL) {
        Line[strcspn(Line, "\r\n")] = '\0';
        Answer(Line);
        fputs(".\n", stdout);
        fflush(stdout);
    }
    return 0;
}
