// Writes the crash report's XML text piece by piece through a buffer of its own: no XML library, no memory from the
// heap, because a crashed process can rely on neither.
//
// Texts are in the ANSI code page and are written byte for byte; the file says "gb2312" whatever the code page is.
// Numbers are written in the forms that the sender reads (docs/report-format.md lists them).
#pragma once

#include <windows.h>

namespace sample {

class ReportFile {
  public:
    explicit ReportFile(const char* pszPath);
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    // False: the file could not be made, or a write failed so far.
    [[nodiscard]] bool IsGood() const { return m_bGood; }
    // Writes what is still in the buffer.
    bool Close();

    void Declaration();
    void Begin(const char* pszName);
    void End(const char* pszName);
    // <Name>text</Name>
    void Text(const char* pszName, const char* pszText);
    void Number(const char* pszName, const char* pszFormat, unsigned long long uNumber);

    // <Name Attribute="value" ... />
    void BeginAttributes(const char* pszName);
    void Attribute(const char* pszName, const char* pszText);
    void Attribute(const char* pszName, const char* pszFormat, unsigned long long uNumber);
    void EndAttributes();
    // <Name Attribute="value">
    void EndAttributesOpen();

  private:
    void Put(const char* pszText);
    void PutEscaped(const char* pszText);
    void PutByte(char cByte);
    void Indent();
    void Flush();

    HANDLE m_hFile;
    bool m_bGood;
    int m_nDepth = 0;
    DWORD m_dwUsed = 0;
    char m_Buffer[4096];
};

}  // namespace sample
