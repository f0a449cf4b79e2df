// What the client makes of any answer: status, announced length, pieces of the body, calls that fail. Input: the calls
// that work, the address, status, length, and the pieces, a line each.
#include <cerrno>
#include <climits>

#include "Fuzz.h"
#include "Unicode.h"
#include "native/World.h"
#include "net/AnswerRules.h"
#include "net/FormPostClient.h"
#include "net/Requests.h"

namespace {

using native::Server;

constexpr int CallsBeforeBody = 8;  // crack, three to open, header, send, status, length

std::string Narrowed(const std::wstring& strWide) {
    return std::string(strWide.begin(), strWide.end());
}

// A number as the C library reads it, blanks and sign included; the range's end for what is beyond it.
long NumberOf(const std::string& strText) {
    return std::strtol(strText.c_str(), nullptr, 10);
}

struct Outcome {
    bool bResult = false;
    int nStatus = 0;
    std::string strBody;
};

bool IsGoodAddress(const std::wstring& strUrl) {
    const bool bOurs = strUrl.starts_with(L"http://") || strUrl.starts_with(L"https://");
    const std::wstring strRest = bOurs ? strUrl.substr(strUrl.find(L"://") + 3) : L"";
    const std::size_t uPath = std::min(strRest.find(L'/'), strRest.size());
    const std::wstring strHost = strRest.substr(0, std::min(strRest.find(L':'), uPath));
    const std::string strPort = Narrowed(strRest.substr(strHost.size(), uPath - strHost.size()));
    const unsigned long uPort = strPort.empty() ? 80 : std::strtoul(strPort.c_str() + 1, nullptr, 10);
    return !strHost.empty() && strHost.size() < 256 && strRest.size() - uPath < 256 && uPort > 0 && uPort < 65536;
}

Outcome Expected(const std::wstring& strUrl, const Server& Script) {
    Outcome Result;
    if (!IsGoodAddress(strUrl) || Script.nCallsThatWork < CallsBeforeBody - 1 || Script.strStatus.size() > 3) {
        return Result;
    }
    Result.nStatus = static_cast<int>(NumberOf(Narrowed(Script.strStatus)));
    int nCalls = CallsBeforeBody;
    std::size_t uPiece = 0;
    for (; uPiece < Script.Pieces.size() && !Script.Pieces[uPiece].empty(); ++uPiece) {
        Result.strBody += Script.Pieces[uPiece];
        nCalls += 2;
    }
    // Behind the last piece it is asked once whether there is more, and read once when that is claimed.
    nCalls += 1 + (uPiece == Script.Pieces.size() && Script.bStopsShort ? 1 : 0);
    const bool bAnnounced = Script.bLength && Script.strLength.size() < 32;
    const bool bWhole = !bAnnounced || NumberOf(Narrowed(Script.strLength)) == static_cast<long>(Result.strBody.size());
    Result.bResult = Result.nStatus == 200 && nCalls <= Script.nCallsThatWork && bWhole;
    return Result;
}

void CheckAnswerText(const std::wstring& strFound, const std::string& strBody) {
    std::wstring strExpected;
    if (fuzz::Utf16Of(fuzz::UpToZero(strBody), strExpected)) {
        fuzz::Require(strFound == strExpected, "the answer is converted up to its first zero");
    } else {
        fuzz::Require(strFound.find(L'\xFFFD') != std::wstring::npos, "what is no UTF-8 is replaced");
    }
}

void CheckRequest(const Server& Seen) {
    const std::wstring strHeader = L"Content-Type: multipart/form-data; boundary=";
    fuzz::Require(Seen.strHeader.starts_with(strHeader) && Seen.strHeader.size() == strHeader.size() + 43,
                  "the header names the boundary");
    const std::string strBoundary = Narrowed(Seen.strHeader.substr(strHeader.size()));
    fuzz::RequireSame(Seen.strBody,
                      "--" + strBoundary + "\r\nContent-Disposition: form-data; name=\"dump_key\"\r\n\r\nkey\r\n--" +
                          strBoundary + "\r\nContent-Disposition: form-data; name=\"project\"\r\n\r\nBRENN\r\n\r\n--" +
                          strBoundary + "--\r\n",
                      "the body");
}

void CheckPost(const std::wstring& strUrl, const Server& Script) {
    const Outcome Wanted = Expected(strUrl, Script);
    Server& Seen = native::TheWorld().TheServer;
    std::wstring strAnswer = L"before";
    int nStatus = -1;
    Seen = Script;
    const bool bResult = crashvane::FormPostClient::Post(strUrl, {{L"project", L"BRENN"}, {L"dump_key", L"key"}}, L"",
                                                         L"", nullptr, &strAnswer, &nStatus);
    fuzz::Require(bResult == Wanted.bResult, "success is status 200 and the whole body");
    fuzz::Require(nStatus == Wanted.nStatus, "the status is told");
    fuzz::Require(Seen.nOpenHandles == 0, "every handle is closed");
    if (bResult) {
        CheckAnswerText(strAnswer, Wanted.strBody);
        CheckRequest(Seen);
    } else {
        fuzz::Require(strAnswer == L"before", "a failure leaves the answer alone");
    }
}

void CheckSolution(const std::wstring& strUrl, const Server& Script) {
    const Outcome Wanted = Expected(strUrl, Script);
    int nCrashType = -1;
    native::TheWorld().TheServer = Script;
    const int nResult = crashvane::PostDumpSolution(Narrowed(strUrl), "BRENN", "key", nCrashType);
    fuzz::Require(nResult == (Wanted.bResult ? 1 : 0), "the query succeeds as any request does");
    const long nNumber = Wanted.bResult ? NumberOf(Wanted.strBody) : 0;
    fuzz::Require(nCrashType == std::clamp<long>(nNumber, INT_MIN, INT_MAX), "the crash type is the answer's number");
}

void CheckRules(const std::wstring& strNumber, std::size_t uRead) {
    const long nNumber = NumberOf(Narrowed(strNumber));
    fuzz::Require(crashvane::ParseLength(strNumber.c_str()) == nNumber, "a length is a number");
    if (nNumber >= INT_MIN && nNumber <= INT_MAX) {
        fuzz::Require(crashvane::ParseStatus(strNumber.c_str()) == nNumber, "a status is a number");
    }
    const std::size_t uReserved = crashvane::BytesToReserve(nNumber);
    fuzz::Require(uReserved <= 64 * 1024 * 1024, "a lie costs no memory");
    fuzz::Require(uReserved == 0 || uReserved == static_cast<unsigned long>(nNumber), "what is announced is set aside");
    fuzz::Require(crashvane::IsWhole({true, nNumber}, uRead) == (nNumber == static_cast<long>(uRead)),
                  "an announced length is met exactly");
    fuzz::Require(crashvane::IsWhole({false, nNumber}, uRead), "no announced length is always met");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    fuzz::Input Given(pBytes, uSize);
    Server Script;
    Script.nCallsThatWork = static_cast<int>(Given.Byte());
    const unsigned uFlags = Given.Byte();
    Script.bLength = (uFlags & 1) != 0;
    Script.bStopsShort = (uFlags & 2) != 0;
    const std::wstring strUrl = fuzz::Widened(fuzz::UpToZero(Given.Line()));
    Script.strStatus = fuzz::Widened(fuzz::UpToZero(Given.Line()));
    Script.strLength = fuzz::Widened(fuzz::UpToZero(Given.Line()));
    const unsigned uRepeat = (uFlags & 4) != 0 ? 100 : 1;
    while (!Given.IsEmpty()) {
        std::string strPiece = Given.Line();
        Script.Pieces.push_back(strPiece);
        for (unsigned uTime = 1; uTime < uRepeat; ++uTime) {
            Script.Pieces.back() += strPiece;
        }
    }
    CheckPost(strUrl, Script);
    CheckSolution(strUrl, Script);
    CheckRules(Script.strLength, uSize);
    return 0;
}
