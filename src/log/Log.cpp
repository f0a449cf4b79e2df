#include "log/Log.h"

#include <windows.h>

#include <direct.h>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>

namespace crashvane::Log {
namespace {

constexpr std::size_t LINE_SIZE = 1024;
constexpr std::size_t LINE_LENGTH = LINE_SIZE - 1;  // a line's bytes at most, its line feed included
constexpr std::size_t NAME_SIZE = 1023;             // of folders and files, terminator included

constexpr const char* LEVEL_WORDS[8] = {"RESR0", "RESR1", "RESR2", "ERROR", "WARN ", "RESR3", "INFO ", "DEBUG"};

struct State {
    LogSettings Settings = {};
    char szFolder[LINE_SIZE] = {};
    int nFile = -1;
    bool bReopen = false;
    SYSTEMTIME Opened = {};  // of which only the date counts
    std::int32_t nLines = 0;
    Clock pfnClock = nullptr;
    CRITICAL_SECTION Lock = {};

    State() { InitializeCriticalSection(&Lock); }
};

// Made on first use, before the first line, and never destroyed: a line may come as late as the process ends.
State& TheState() {
    alignas(State) static unsigned char Memory[sizeof(State)];
    static State& Instance = *new (Memory) State;
    return Instance;
}

struct LockOwner {
    explicit LockOwner(CRITICAL_SECTION& Section) : m_Section(Section) { EnterCriticalSection(&m_Section); }
    ~LockOwner() { LeaveCriticalSection(&m_Section); }
    LockOwner(const LockOwner&) = delete;
    LockOwner& operator=(const LockOwner&) = delete;

  private:
    CRITICAL_SECTION& m_Section;
};

SYSTEMTIME Now(const State& TheLog) {
    SYSTEMTIME Time = {};
    if (TheLog.pfnClock == nullptr) {
        GetLocalTime(&Time);
        return Time;
    }
    ULARGE_INTEGER Ticks = {};
    Ticks.QuadPart = static_cast<ULONGLONG>(TheLog.pfnClock()) * 10000000 + 116444736000000000ULL;
    const FILETIME FileTime = {Ticks.LowPart, Ticks.HighPart};
    FileTimeToSystemTime(&FileTime, &Time);
    return Time;
}

bool IsSameDay(const SYSTEMTIME& One, const SYSTEMTIME& Other) {
    return One.wDay == Other.wDay && One.wMonth == Other.wMonth && One.wYear == Other.wYear;
}

void CloseFile(State& TheLog) {
    if (TheLog.nFile >= 0) {
        _close(TheLog.nFile);
        TheLog.nFile = -1;
    }
}

bool MakeFolder(const char* pszFolder) {
    if (_mkdir(pszFolder) == 0 || errno == EEXIST) {
        return true;
    }
    std::fprintf(stderr, "ZTLog: ZT_mkdir(\"%s\") failed = %s\n", pszFolder, std::strerror(errno));
    return false;
}

bool OpenFile(State& TheLog, const SYSTEMTIME& Time) {
    char szDay[LINE_SIZE] = {};
    char szFile[LINE_SIZE] = {};
    if (!MakeFolder(TheLog.Settings.szRoot) || !MakeFolder(TheLog.szFolder)) {
        CloseFile(TheLog);
        return false;
    }
    CloseFile(TheLog);
    PrintBounded(szDay, NAME_SIZE, "%s%d_%2.2d_%2.2d/", TheLog.szFolder, Time.wYear, Time.wMonth, Time.wDay);
    MakeFolder(szDay);
    PrintBounded(szFile, NAME_SIZE, "%s%s_%d_%2.2d_%2.2d_%2.2d_%2.2d_%2.2d.log", szDay, TheLog.Settings.szIdentity,
                 Time.wYear, Time.wMonth, Time.wDay, Time.wHour, Time.wMinute, Time.wSecond);
    TheLog.nFile =
        _sopen(szFile, _O_WRONLY | _O_CREAT | _O_TRUNC | _O_APPEND | _O_BINARY, _SH_DENYNO, _S_IREAD | _S_IWRITE);
    if (TheLog.nFile < 0) {
        std::fprintf(stderr, "ZTLog: open(\"%s\") failed = %s\n", szFile, std::strerror(errno));
    }
    return TheLog.nFile >= 0;
}

// One write, past the stream's buffer. A program without a console may have no such stream at all.
void Echo(std::FILE* pStream, const char* pszLine, std::size_t uLength) {
    const int nFile = _fileno(pStream);
    if (nFile >= 0) {
        _write(nFile, pszLine, static_cast<unsigned>(uLength));
    }
}

std::size_t FormLine(char (&szLine)[LINE_SIZE], const SYSTEMTIME& Time, int nLevel, const char* pszFormat,
                     std::va_list Arguments) {
    int nCount = _snprintf(szLine, LINE_LENGTH, "%d%2.2d%2.2d-%2.2d%2.2d%2.2d<%s:%p>: ", Time.wYear, Time.wMonth,
                           Time.wDay, Time.wHour, Time.wMinute, Time.wSecond, LEVEL_WORDS[nLevel & 7],
                           reinterpret_cast<void*>(static_cast<std::uintptr_t>(GetCurrentThreadId())));
    std::size_t uLength = nCount < 0 ? LINE_LENGTH : static_cast<std::size_t>(nCount);
    if (uLength < LINE_LENGTH) {
        nCount = _vsnprintf(szLine + uLength, LINE_LENGTH - uLength, pszFormat, Arguments);
        uLength = nCount < 0 ? LINE_LENGTH : uLength + static_cast<std::size_t>(nCount);
    }
    if (szLine[uLength - 1] != '\n' && szLine[uLength - 1] != '\r') {
        if (uLength < LINE_LENGTH) {
            ++uLength;
        }
        szLine[uLength - 1] = '\n';
    }
    szLine[uLength] = '\0';
    return uLength;
}

bool WriteToFile(State& TheLog, const SYSTEMTIME& Time, const char* pszLine, std::size_t uLength) {
    const LockOwner Lock(TheLog.Lock);
    if (TheLog.bReopen || TheLog.nLines >= TheLog.Settings.nMaxLines || !IsSameDay(TheLog.Opened, Time)) {
        TheLog.Opened = Time;
        TheLog.bReopen = false;
        if (!OpenFile(TheLog, Time)) {
            return false;
        }
        TheLog.nLines = 0;
    }
    if (TheLog.nFile >= 0 &&
        _write(TheLog.nFile, pszLine, static_cast<unsigned>(uLength)) != static_cast<int>(uLength)) {
        std::fputs("warning : error on write log file, please check your hard disk!", stdout);
        std::fflush(stdout);
    }
    ++TheLog.nLines;
    return true;
}

void TerminateTexts(LogSettings& Settings) {
    Settings.szRoot[sizeof(Settings.szRoot) - 1] = '\0';
    Settings.szIdentity[sizeof(Settings.szIdentity) - 1] = '\0';
}

// False: no room for the root's separator.
bool Normalise(LogSettings& Settings) {
    std::size_t uRoot = std::strlen(Settings.szRoot);
    const std::size_t uIdentity = std::strlen(Settings.szIdentity);
    if (Settings.szRoot[uRoot - 1] == '\\') {
        Settings.szRoot[uRoot - 1] = '/';
    } else if (Settings.szRoot[uRoot - 1] != '/') {
        if (uRoot + 1 >= sizeof(Settings.szRoot)) {
            return false;
        }
        Settings.szRoot[uRoot++] = '/';
        Settings.szRoot[uRoot] = '\0';
    }
    if (Settings.szIdentity[uIdentity - 1] == '/' || Settings.szIdentity[uIdentity - 1] == '\\') {
        Settings.szIdentity[uIdentity - 1] = '\0';
    }
    return true;
}

}  // namespace

bool Start(const LogSettings& Settings) {
    State& TheLog = TheState();
    TheLog.Settings = Settings;
    TerminateTexts(TheLog.Settings);
    TheLog.bReopen = true;
    if ((TheLog.Settings.uFlags & LogToFile) == 0) {
        return true;
    }
    if (TheLog.Settings.szRoot[0] == '\0' || TheLog.Settings.szIdentity[0] == '\0' || !Normalise(TheLog.Settings)) {
        return false;
    }
    return PrintBounded(TheLog.szFolder, NAME_SIZE, "%s%s/", TheLog.Settings.szRoot, TheLog.Settings.szIdentity) >= 0;
}

bool Write(int nLevel, const char* pszFormat, ...) {
    State& TheLog = TheState();
    char szLine[LINE_SIZE];
    const SYSTEMTIME Time = Now(TheLog);
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const std::size_t uLength = FormLine(szLine, Time, nLevel, pszFormat, Arguments);
    va_end(Arguments);

    if ((TheLog.Settings.uFlags & LogToStandardOutput) != 0) {
        Echo(stdout, szLine, uLength);
    }
    if ((TheLog.Settings.uFlags & LogToStandardError) != 0) {
        Echo(stderr, szLine, uLength);
    }
    return (TheLog.Settings.uFlags & LogToFile) == 0 || WriteToFile(TheLog, Time, szLine, uLength);
}

void Close() {
    CloseFile(TheState());
}

void SetClock(Clock pfnClock) {
    TheState().pfnClock = pfnClock;
}

int PrintBoundedV(char* pszBuffer, std::size_t uCount, const char* pszFormat, std::va_list Arguments) {
    const int nLength = _vsnprintf(pszBuffer, uCount, pszFormat, Arguments);
    if (nLength >= 0 && static_cast<std::size_t>(nLength) < uCount) {
        return nLength;
    }
    pszBuffer[uCount - 1] = '\0';
    return -1;
}

int PrintBounded(char* pszBuffer, std::size_t uCount, const char* pszFormat, ...) {
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const int nLength = PrintBoundedV(pszBuffer, uCount, pszFormat, Arguments);
    va_end(Arguments);
    return nLength;
}

}  // namespace crashvane::Log
