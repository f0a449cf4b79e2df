// The system's HTTP client: every call is answered from the world's script.
#pragma once

#include <windows.h>

using HINTERNET = void*;
using INTERNET_PORT = WORD;

constexpr DWORD INTERNET_OPEN_TYPE_PRECONFIG = 0;
constexpr DWORD INTERNET_SERVICE_HTTP = 3;
constexpr DWORD INTERNET_FLAG_SECURE = 0x00800000;
constexpr DWORD HTTP_ADDREQ_FLAG_ADD = 0x20000000;
constexpr DWORD HTTP_QUERY_CONTENT_LENGTH = 5;
constexpr DWORD HTTP_QUERY_STATUS_CODE = 19;

struct URL_COMPONENTSW {
    DWORD dwStructSize;
    wchar_t* lpszScheme;
    DWORD dwSchemeLength;
    wchar_t* lpszHostName;
    DWORD dwHostNameLength;
    INTERNET_PORT nPort;
    wchar_t* lpszUrlPath;
    DWORD dwUrlPathLength;
};
BOOL InternetCrackUrlW(const wchar_t* pszUrl, DWORD dwLength, DWORD dwFlags, URL_COMPONENTSW* pParts);
HINTERNET InternetOpenW(const wchar_t* pszAgent, DWORD dwAccess, const wchar_t* pszProxy, const wchar_t* pszBypass,
                        DWORD dwFlags);
HINTERNET InternetConnectW(HINTERNET hSession, const wchar_t* pszHost, INTERNET_PORT wPort, const wchar_t* pszUser,
                           const wchar_t* pszPassword, DWORD dwService, DWORD dwFlags, std::uintptr_t uContext);
HINTERNET HttpOpenRequestW(HINTERNET hConnection, const wchar_t* pszVerb, const wchar_t* pszPath,
                           const wchar_t* pszVersion, const wchar_t* pszReferrer, const wchar_t** ppszTypes,
                           DWORD dwFlags, std::uintptr_t uContext);
BOOL HttpAddRequestHeadersW(HINTERNET hRequest, const wchar_t* pszLine, DWORD dwLength, DWORD dwModifier);
BOOL HttpSendRequestW(HINTERNET hRequest, const wchar_t* pszHeaders, DWORD dwHeaders, void* pBody, DWORD dwBody);
BOOL HttpQueryInfoW(HINTERNET hRequest, DWORD dwWhat, void* pBuffer, DWORD* pdwBytes, DWORD* pdwIndex);
BOOL InternetQueryDataAvailable(HINTERNET hRequest, DWORD* pdwBytes, DWORD dwFlags, std::uintptr_t uContext);
BOOL InternetReadFile(HINTERNET hRequest, void* pBuffer, DWORD dwWanted, DWORD* pdwRead);
BOOL InternetCloseHandle(HINTERNET hInternet);
