// The system's HTTP client, answered from the world's script. A session, a connection and a request are objects on the
// heap like any handle.
#include <wininet.h>

#include <algorithm>
#include <cstring>

#include "native/World.h"

using native::Server;
using native::TheWorld;

namespace {

struct Handle {
    int nKind;
};

Server& TheServer() {
    return TheWorld().TheServer;
}

bool Works() {
    return TheServer().nCalls++ < TheServer().nCallsThatWork;
}

HINTERNET NewHandle() {
    if (!Works()) {
        return nullptr;
    }
    ++TheServer().nOpenHandles;
    return new Handle{0};
}

bool Copy(const std::wstring& strPart, wchar_t* pszRoom, DWORD dwRoom) {
    if (strPart.size() >= dwRoom) {
        return false;
    }
    std::wcscpy(pszRoom, strPart.c_str());
    return true;
}

}  // namespace

// scheme://host[:port][/path]: enough of the platform's reader to send something somewhere.
BOOL InternetCrackUrlW(const wchar_t* pszUrl, DWORD dwLength, DWORD, URL_COMPONENTSW* pParts) {
    const std::wstring strUrl(pszUrl, wcsnlen(pszUrl, dwLength));
    const std::size_t uScheme = strUrl.find(L"://");
    if (!Works() || uScheme == std::wstring::npos || uScheme == 0) {
        return FALSE;
    }
    const std::wstring strScheme = strUrl.substr(0, uScheme);
    const std::wstring strRest = strUrl.substr(uScheme + 3);
    const std::size_t uPath = std::min(strRest.find(L'/'), strRest.size());
    const std::wstring strHost = strRest.substr(0, uPath);
    const std::size_t uPort = std::min(strHost.find(L':'), strHost.size());
    const unsigned long uNumber = uPort < strHost.size()  ? std::wcstoul(strHost.c_str() + uPort + 1, nullptr, 10)
                                  : strScheme == L"https" ? 443
                                                          : 80;
    if (uPort == 0 || uNumber == 0 || uNumber > 65535) {
        return FALSE;
    }
    pParts->nPort = static_cast<INTERNET_PORT>(uNumber);
    return Copy(strScheme, pParts->lpszScheme, pParts->dwSchemeLength) &&
                   Copy(strHost.substr(0, uPort), pParts->lpszHostName, pParts->dwHostNameLength) &&
                   Copy(strRest.substr(uPath), pParts->lpszUrlPath, pParts->dwUrlPathLength)
               ? TRUE
               : FALSE;
}

HINTERNET InternetOpenW(const wchar_t*, DWORD, const wchar_t*, const wchar_t*, DWORD) {
    return NewHandle();
}

HINTERNET InternetConnectW(HINTERNET, const wchar_t* pszHost, INTERNET_PORT wPort, const wchar_t*, const wchar_t*,
                           DWORD, DWORD, std::uintptr_t) {
    TheServer().strHost = pszHost;
    TheServer().wPort = wPort;
    return NewHandle();
}

HINTERNET HttpOpenRequestW(HINTERNET, const wchar_t*, const wchar_t* pszPath, const wchar_t*, const wchar_t*,
                           const wchar_t**, DWORD dwFlags, std::uintptr_t) {
    TheServer().strPath = pszPath;
    TheServer().bSecure = (dwFlags & INTERNET_FLAG_SECURE) != 0;
    return NewHandle();
}

BOOL HttpAddRequestHeadersW(HINTERNET, const wchar_t* pszLine, DWORD, DWORD) {
    TheServer().strHeader = pszLine;
    return Works() ? TRUE : FALSE;
}

BOOL HttpSendRequestW(HINTERNET, const wchar_t*, DWORD, void* pBody, DWORD dwBody) {
    if (!Works()) {
        return FALSE;
    }
    TheServer().bSent = true;
    TheServer().strBody.assign(static_cast<const char*>(pBody), dwBody);
    return TRUE;
}

BOOL HttpQueryInfoW(HINTERNET, DWORD dwWhat, void* pBuffer, DWORD* pdwBytes, DWORD*) {
    const bool bStatus = dwWhat == HTTP_QUERY_STATUS_CODE;
    const std::wstring& strText = bStatus ? TheServer().strStatus : TheServer().strLength;
    const auto dwNeeded = static_cast<DWORD>((strText.size() + 1) * sizeof(wchar_t));
    if (!Works() || (!bStatus && !TheServer().bLength)) {
        return FALSE;
    }
    if (*pdwBytes < dwNeeded) {
        *pdwBytes = dwNeeded;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::memcpy(pBuffer, strText.c_str(), dwNeeded);
    *pdwBytes = dwNeeded - static_cast<DWORD>(sizeof(wchar_t));
    return TRUE;
}

BOOL InternetQueryDataAvailable(HINTERNET, DWORD* pdwBytes, DWORD, std::uintptr_t) {
    const Server& Now = TheServer();
    *pdwBytes = Now.uPiece < Now.Pieces.size() ? static_cast<DWORD>(Now.Pieces[Now.uPiece].size())
                                               : (Now.bStopsShort ? 1000 : 0);
    return Works() ? TRUE : FALSE;
}

BOOL InternetReadFile(HINTERNET, void* pBuffer, DWORD dwWanted, DWORD* pdwRead) {
    Server& Now = TheServer();
    *pdwRead = 0;
    if (!Works()) {
        return FALSE;
    }
    if (Now.uPiece < Now.Pieces.size()) {
        const std::string& strPiece = Now.Pieces[Now.uPiece++];
        *pdwRead = std::min(dwWanted, static_cast<DWORD>(strPiece.size()));
        std::memcpy(pBuffer, strPiece.data(), *pdwRead);
    }
    return TRUE;
}

BOOL InternetCloseHandle(HINTERNET hInternet) {
    --TheServer().nOpenHandles;
    delete static_cast<Handle*>(hInternet);
    return TRUE;
}
