#include "zip/SourceFile.h"

#include <windows.h>

#include "zip/EntryTime.h"
#include "zip/ExternalAttributes.h"

namespace crashvane {
namespace {

std::uint32_t LittleEndian(const unsigned char* pBytes, unsigned uWidth) {
    std::uint32_t uResult = 0;
    for (unsigned uByte = 0; uByte < uWidth; ++uByte) {
        uResult |= std::uint32_t{pBytes[uByte]} << (8 * uByte);
    }
    return uResult;
}

}  // namespace

ZipResult SourceFile::Open(const std::string& strPath) {
    LARGE_INTEGER Size = {};
    m_hFile.Reset(CreateFileA(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    // NUL, CON and pipes open as well, and reading one of them might never end.
    if (!m_hFile || GetFileType(m_hFile.Get()) != FILE_TYPE_DISK || !GetFileSizeEx(m_hFile.Get(), &Size) ||
        Size.HighPart != 0) {
        return ZipNoFile;
    }
    m_uSize = Size.LowPart;
    return ZipOk;
}

ZipResult SourceFile::Examine(EntryRecord& Entry) {
    BY_HANDLE_FILE_INFORMATION Facts = {};
    bool bExecutable = false;
    if (!GetFileInformationByHandle(m_hFile.Get(), &Facts) || !TestExecutable(bExecutable)) {
        return ZipNoFile;
    }
    Entry.uUncompressedSize = m_uSize;
    Entry.uExternalAttributes = ExternalAttributes(Facts.dwFileAttributes, bExecutable);
    Entry.uModified = UnixTime(Facts.ftLastWriteTime);
    Entry.uAccessed = UnixTime(Facts.ftLastAccessTime);
    Entry.uCreated = UnixTime(Facts.ftCreationTime);
    Entry.uTimeAndDate = DosTimeAndDate(Facts.ftLastWriteTime);
    return ZipOk;
}

bool SourceFile::Read(void* pBuffer, std::uint32_t uWanted, std::uint32_t& uRead) {
    DWORD dwRead = 0;
    const bool bRead = ReadFile(m_hFile.Get(), pBuffer, uWanted, &dwRead, nullptr) != FALSE;
    uRead = dwRead;
    return bRead;
}

bool SourceFile::ReadAt(std::uint64_t uAt, void* pBuffer, std::uint32_t uWanted, std::uint32_t& uRead) {
    LARGE_INTEGER To = {};
    To.QuadPart = static_cast<LONGLONG>(uAt);
    return SetFilePointerEx(m_hFile.Get(), To, nullptr, FILE_BEGIN) && Read(pBuffer, uWanted, uRead);
}

// False: the file cannot be read. A file that has become shorter is no executable.
bool SourceFile::TestExecutable(bool& bExecutable) {
    unsigned char Start[NewHeaderOffsetAt + 4] = {};
    unsigned char NewHeader[4] = {};
    std::uint32_t uRead = 0;
    if (m_uSize <= LargestNotExecutable) {
        return true;
    }
    bool bReadable = ReadAt(0, Start, sizeof(Start), uRead);
    const std::uint32_t uNewHeaderAt = LittleEndian(Start + NewHeaderOffsetAt, 4);
    if (bReadable && uRead == sizeof(Start) && HasNewHeader(m_uSize, LittleEndian(Start, 2), uNewHeaderAt)) {
        bReadable = ReadAt(uNewHeaderAt, NewHeader, sizeof(NewHeader), uRead);
        bExecutable = uRead == sizeof(NewHeader) && IsExecutableMark(LittleEndian(NewHeader, 4));
    }
    return bReadable && SetFilePointerEx(m_hFile.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN);
}

void AssumeFacts(EntryRecord& Entry) {
    SYSTEMTIME Local = {};
    FILETIME Now = {};
    GetLocalTime(&Local);
    SystemTimeToFileTime(&Local, &Now);
    Entry.uUncompressedSize = UnknownSize;
    Entry.uExternalAttributes = OrdinaryFile;
    Entry.uModified = Entry.uAccessed = Entry.uCreated = UnixTime(Now);
    Entry.uTimeAndDate = DosTimeAndDate(Now);
}

}  // namespace crashvane
