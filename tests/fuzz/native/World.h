// The world around the fuzzed code: files, places, clock, streams and server, all in memory, all chosen by the input.
//
// A target resets it before every input. Handles are objects on the heap, so that a handle that is never closed is a
// leak that the leak checker names.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace native {

// 100 ns since 1601.
using Ticks = std::uint64_t;

struct File {
    std::string strPath;  // as it was made
    std::string strBytes;
    bool bFolder = false;
    DWORD dwAttributes = FILE_ATTRIBUTE_ARCHIVE;
    Ticks uWritten = 0;
    Ticks uAccessed = 0;
    Ticks uCreated = 0;
    std::uint64_t uHidden = 0;  // bytes that its size counts and that no read finds: it has shrunk, or is sparse
    bool bUnreadable = false;   // opens, but no read succeeds
};

// What the server, and the way to it, does to one request.
struct Server {
    int nCallsThatWork = 1000;  // the call behind that many fails, and every later one
    std::wstring strStatus = L"200";
    bool bLength = false;  // the head announces a length
    std::wstring strLength;
    std::vector<std::string> Pieces;  // the answer's body, as it arrives
    bool bStopsShort = false;         // says that there is more when nothing more comes
    // What was seen.
    int nCalls = 0;
    int nOpenHandles = 0;
    bool bSent = false;
    bool bSecure = false;
    std::wstring strHost;
    std::wstring strPath;
    std::wstring strHeader;
    WORD wPort = 0;
    std::string strBody;
    std::size_t uPiece = 0;  // the next one
};

struct World {
    std::map<std::string, File> Files;  // by lower-case path with backslashes
    std::string strCurrentFolder = "C:\\run";
    std::string strModuleFile = "C:\\game\\bin\\Crashvane.exe";
    SYSTEMTIME Now = {2019, 8, 5, 30, 14, 5, 9, 0};
    DWORD dwThread = 0x1A2C;
    UINT uCodePage = 1252;               // 936: bytes 0x81 to 0xFE are lead bytes
    std::int64_t nDiskRoom = INT64_MAX;  // bytes that writes may still take
    int nSeeksThatWork = INT32_MAX;      // the seek behind that many fails, and every later one
    bool bNoFolders = false;             // folders cannot be made
    bool bNoFiles = false;               // files cannot be made
    std::string strStandardOutput;       // written by number
    std::string strStandardError;
    Server TheServer;
    DWORD dwLastError = 0;
};

World& TheWorld();
void ResetWorld();

// A file or folder of the world; the reference stays good until the world is reset or the file made anew.
File& MakeFile(const std::string& strPath, const std::string& strBytes);
File& MakeFolder(const std::string& strPath);
// nullptr: there is none.
File* FindFile(const std::string& strPath);

// The value of a key as the settings reader sees it, whole; false: no such file, section or key.
bool FindSetting(const std::string& strFile, const std::string& strSection, const std::string& strKey,
                 std::string& strValue);

}  // namespace native
