#include "ReportFile.h"

#include <cstdio>

namespace sample {

namespace {

constexpr std::size_t NUMBER_SIZE = 40;

// What stands for a character that the markup needs for itself; null when it stands for itself.
const char* EscapeOf(char cByte) {
    switch (cByte) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&apos;";
        default:
            return nullptr;
    }
}

}  // namespace

ReportFile::ReportFile(const char* pszPath)
    : m_hFile(CreateFileA(pszPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)),
      m_bGood(m_hFile != INVALID_HANDLE_VALUE) {}

ReportFile::~ReportFile() {
    Close();
}

bool ReportFile::Close() {
    if (m_hFile != INVALID_HANDLE_VALUE) {
        Flush();
        CloseHandle(m_hFile);
        m_hFile = INVALID_HANDLE_VALUE;
    }
    return m_bGood;
}

void ReportFile::Declaration() {
    Put("<?xml version=\"1.0\" encoding=\"gb2312\" ?>\r\n");
}

void ReportFile::Begin(const char* pszName) {
    Indent();
    Put("<");
    Put(pszName);
    Put(">\r\n");
    ++m_nDepth;
}

void ReportFile::End(const char* pszName) {
    --m_nDepth;
    Indent();
    Put("</");
    Put(pszName);
    Put(">\r\n");
}

void ReportFile::Text(const char* pszName, const char* pszText) {
    Indent();
    Put("<");
    Put(pszName);
    Put(">");
    PutEscaped(pszText);
    Put("</");
    Put(pszName);
    Put(">\r\n");
}

void ReportFile::Number(const char* pszName, const char* pszFormat, unsigned long long uNumber) {
    char szNumber[NUMBER_SIZE] = {};
    std::snprintf(szNumber, sizeof(szNumber), pszFormat, uNumber);
    Text(pszName, szNumber);
}

void ReportFile::BeginAttributes(const char* pszName) {
    Indent();
    Put("<");
    Put(pszName);
}

void ReportFile::Attribute(const char* pszName, const char* pszText) {
    Put(" ");
    Put(pszName);
    Put("=\"");
    PutEscaped(pszText);
    Put("\"");
}

void ReportFile::Attribute(const char* pszName, const char* pszFormat, unsigned long long uNumber) {
    char szNumber[NUMBER_SIZE] = {};
    std::snprintf(szNumber, sizeof(szNumber), pszFormat, uNumber);
    Attribute(pszName, szNumber);
}

void ReportFile::EndAttributes() {
    Put(" />\r\n");
}

void ReportFile::EndAttributesOpen() {
    Put(">\r\n");
    ++m_nDepth;
}

void ReportFile::Put(const char* pszText) {
    while (*pszText != '\0') {
        PutByte(*pszText++);
    }
}

void ReportFile::PutEscaped(const char* pszText) {
    char szControl[8] = {};
    for (; *pszText != '\0'; ++pszText) {
        const char* const pszEscape = EscapeOf(*pszText);
        if (pszEscape != nullptr) {
            Put(pszEscape);
        } else if (static_cast<unsigned char>(*pszText) < ' ') {
            std::snprintf(szControl, sizeof(szControl), "&#x%02X;", static_cast<unsigned>(*pszText));
            Put(szControl);
        } else {
            PutByte(*pszText);
        }
    }
}

void ReportFile::PutByte(char cByte) {
    if (m_dwUsed == sizeof(m_Buffer)) {
        Flush();
    }
    m_Buffer[m_dwUsed++] = cByte;
}

void ReportFile::Indent() {
    for (int nLevel = 0; nLevel < m_nDepth; ++nLevel) {
        Put("    ");
    }
}

void ReportFile::Flush() {
    DWORD dwWritten = 0;
    if (m_bGood && m_dwUsed != 0) {
        m_bGood = WriteFile(m_hFile, m_Buffer, m_dwUsed, &dwWritten, nullptr) && dwWritten == m_dwUsed;
    }
    m_dwUsed = 0;
}

}  // namespace sample
