// Files by number, as the C runtime of Windows has them: 1 and 2 are the standard streams, kept in the world too.
#pragma once

#include <cstdio>

constexpr int _O_WRONLY = 0x0001;
constexpr int _O_APPEND = 0x0008;
constexpr int _O_CREAT = 0x0100;
constexpr int _O_TRUNC = 0x0200;
constexpr int _O_BINARY = 0x8000;
constexpr int _S_IREAD = 0x0100;
constexpr int _S_IWRITE = 0x0080;

int _sopen(const char* pszPath, int nFlags, int nShare, int nMode);
int _write(int nFile, const void* pBytes, unsigned uSize);
int _close(int nFile);
inline int _fileno(std::FILE* pStream) {
    return pStream == stdout ? 1 : 2;
}
