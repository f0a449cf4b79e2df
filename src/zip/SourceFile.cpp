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
    m_hFile.Reset(CreateFileA(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    // The facts come first: under Wine even the question for the type counts as an access. NUL, CON and pipes open as
    // well, and reading one of them might never end.
    const bool bOnDisk =
        m_hFile && GetFileInformationByHandle(m_hFile.Get(), &m_Facts) && GetFileType(m_hFile.Get()) == FILE_TYPE_DISK;
    return bOnDisk && m_Facts.nFileSizeHigh == 0 ? ZipOk : ZipNoFile;
}

ZipResult SourceFile::Examine(EntryRecord& Entry) {
    bool bExecutable = false;
    const ZipResult Result = TestExecutable(bExecutable) ? ZipOk : ZipNoFile;
    Entry.uUncompressedSize = m_Facts.nFileSizeLow;
    Entry.uExternalAttributes = ExternalAttributes(m_Facts.dwFileAttributes, bExecutable);
    Entry.uModified = UnixTime(m_Facts.ftLastWriteTime);
    Entry.uAccessed = UnixTime(m_Facts.ftLastAccessTime);
    Entry.uCreated = UnixTime(m_Facts.ftCreationTime);
    Entry.uTimeAndDate = DosTimeAndDate(m_Facts.ftLastWriteTime);
    return Result;
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
    if (m_Facts.nFileSizeLow <= LargestNotExecutable) {
        return true;
    }
    bool bReadable = ReadAt(0, Start, sizeof(Start), uRead);
    const std::uint32_t uNewHeaderAt = LittleEndian(Start + NewHeaderOffsetAt, 4);
    if (bReadable && uRead == sizeof(Start) &&
        HasNewHeader(m_Facts.nFileSizeLow, LittleEndian(Start, 2), uNewHeaderAt)) {
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
