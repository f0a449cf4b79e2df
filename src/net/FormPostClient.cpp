#include "net/FormPostClient.h"

#include <cwchar>
#include <iterator>
#include <new>
#include <stdexcept>

#include "net/AnswerRules.h"
#include "net/InternetHandle.h"
#include "net/MultipartBody.h"
#include "net/Utf8.h"

namespace crashvane {
namespace {

constexpr const wchar_t* USER_AGENT = L"Breakpad/1.0 (Windows)";
constexpr const wchar_t* CONTENT_TYPE = L"Content-Type: multipart/form-data; boundary=";

struct Address {
    wchar_t szScheme[16] = {};
    wchar_t szHost[256] = {};
    wchar_t szPath[256] = {};
    INTERNET_PORT wPort = 0;
    bool bSecure = false;
};

// False: no address, one with a component longer than its buffer, or a scheme that is not ours.
bool CrackUrl(const std::wstring& strUrl, Address& Target) {
    URL_COMPONENTSW Components = {};
    Components.dwStructSize = sizeof(Components);
    Components.lpszScheme = Target.szScheme;
    Components.dwSchemeLength = static_cast<DWORD>(std::size(Target.szScheme));
    Components.lpszHostName = Target.szHost;
    Components.dwHostNameLength = static_cast<DWORD>(std::size(Target.szHost));
    Components.lpszUrlPath = Target.szPath;
    Components.dwUrlPathLength = static_cast<DWORD>(std::size(Target.szPath));
    if (InternetCrackUrlW(strUrl.c_str(), static_cast<DWORD>(strUrl.size()), 0, &Components) == FALSE) {
        return false;
    }
    Target.wPort = Components.nPort;
    Target.bSecure = std::wcscmp(Target.szScheme, L"https") == 0;
    return Target.bSecure || std::wcscmp(Target.szScheme, L"http") == 0;
}

// Session, connection and request; they close in reverse.
class Exchange {
  public:
    bool Open(const Address& Target) {
        m_hSession.Reset(InternetOpenW(USER_AGENT, INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
        if (!m_hSession) {
            return false;
        }
        m_hConnection.Reset(InternetConnectW(m_hSession.Get(), Target.szHost, Target.wPort, nullptr, nullptr,
                                             INTERNET_SERVICE_HTTP, 0, 0));
        if (!m_hConnection) {
            return false;
        }
        m_hRequest.Reset(HttpOpenRequestW(m_hConnection.Get(), L"POST", Target.szPath, nullptr, nullptr, nullptr,
                                          Target.bSecure ? INTERNET_FLAG_SECURE : 0, 0));
        return static_cast<bool>(m_hRequest);
    }

    bool AddHeader(const std::wstring& strLine) {
        return HttpAddRequestHeadersW(m_hRequest.Get(), strLine.c_str(), static_cast<DWORD>(-1),
                                      HTTP_ADDREQ_FLAG_ADD) != FALSE;
    }

    bool Send(MultipartBody& Body) {
        return HttpSendRequestW(m_hRequest.Get(), nullptr, 0, Body.Data(), Body.Size()) != FALSE;
    }

    bool QueryStatus(int& nStatus) {
        wchar_t szStatus[4] = {};
        if (!Query(HTTP_QUERY_STATUS_CODE, szStatus, sizeof(szStatus))) {
            return false;
        }
        nStatus = ParseStatus(szStatus);
        return true;
    }

    bool ReadAnswer(std::string& strBody) {
        wchar_t szLength[32] = {};
        AnswerLength Length;
        Length.bAnnounced = Query(HTTP_QUERY_CONTENT_LENGTH, szLength, sizeof(szLength));
        if (Length.bAnnounced) {
            Length.nAnnounced = ParseLength(szLength);
            strBody.reserve(BytesToReserve(Length.nAnnounced));
        }
        return ReadAll(strBody) && IsWhole(Length, strBody.size());
    }

  private:
    bool Query(DWORD dwWhat, wchar_t* pszText, DWORD dwBytes) {
        return HttpQueryInfoW(m_hRequest.Get(), dwWhat, pszText, &dwBytes, nullptr) != FALSE;
    }

    bool ReadAll(std::string& strBody) {
        for (;;) {
            DWORD dwAvailable = 0;
            DWORD dwRead = 0;
            const std::size_t uSoFar = strBody.size();
            if (InternetQueryDataAvailable(m_hRequest.Get(), &dwAvailable, 0, 0) == FALSE) {
                return false;
            }
            if (dwAvailable == 0) {
                return true;
            }
            strBody.resize(uSoFar + dwAvailable);
            if (InternetReadFile(m_hRequest.Get(), strBody.data() + uSoFar, dwAvailable, &dwRead) == FALSE) {
                return false;
            }
            strBody.resize(uSoFar + dwRead);
            if (dwRead == 0) {
                return true;
            }
        }
    }

    InternetHandle m_hSession;
    InternetHandle m_hConnection;
    InternetHandle m_hRequest;
};

bool SendForm(Exchange& Request, MultipartBody& Body, const ParameterMap& Parameters, const UploadFile& File) {
    const std::wstring strBoundary = MakeBoundary();
    return Request.AddHeader(CONTENT_TYPE + strBoundary) && Body.Build(strBoundary, Parameters, File) &&
           Request.Send(Body);
}

bool PostForm(const std::wstring& strUrl, const ParameterMap& Parameters, const UploadFile& File,
              std::wstring* pstrResponseBody, int& nStatus) {
    Address Target;
    MultipartBody Body;  // outlives the request, which may send it once more
    Exchange Request;
    std::string strAnswer;
    if (!AreNamesValid(Parameters) || (!File.strPath.empty() && File.strPartName.empty())) {
        return false;
    }
    if (!CrackUrl(strUrl, Target) || !Request.Open(Target) || !SendForm(Request, Body, Parameters, File)) {
        return false;
    }
    if (!Request.QueryStatus(nStatus) || nStatus != STATUS_OK || !Request.ReadAnswer(strAnswer)) {
        return false;
    }
    if (pstrResponseBody != nullptr) {
        *pstrResponseBody = FromUtf8(strAnswer);
    }
    return true;
}

}  // namespace

bool FormPostClient::Post(const std::wstring& strUrl, const ParameterMap& Parameters, const std::wstring& strUploadFile,
                          const std::wstring& strFilePartName, const int* /*pnTimeout*/, std::wstring* pstrResponseBody,
                          int* pnResponseCode) {
    int nStatus = 0;
    bool bResult = false;
    try {
        bResult = PostForm(strUrl, Parameters, {strUploadFile, strFilePartName}, pstrResponseBody, nStatus);
    } catch (const std::bad_alloc&) {
        bResult = false;
    } catch (const std::length_error&) {
        bResult = false;
    }
    if (pnResponseCode != nullptr) {
        *pnResponseCode = nStatus;
    }
    return bResult;
}

}  // namespace crashvane
