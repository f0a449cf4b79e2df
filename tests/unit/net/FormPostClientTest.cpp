// What goes out: addresses, names, the request's bytes.
#include "net/RawServer.h"

#include "net/FormPostClient.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "net/Posting.h"
#include "net/TempFolder.h"

namespace crashvane {
namespace {

// Nothing was asked of any server: the code is as at the beginning and no answer was written.
void ExpectRefused(const Posted& Result) {
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 0);
    EXPECT_EQ(Result.strAnswer, L"untouched");
}

// The user's proxy setting as this process sees it: the user's part of the registry is another one while it lives, so
// that no other program notices.
class ProxySetting {
  public:
    explicit ProxySetting(const std::string& strProxy)
        : m_strRoot("Software\\CrashvaneTests_" + std::to_string(GetCurrentProcessId())) {
        const DWORD dwEnable = 1;
        RegCreateKeyA(HKEY_CURRENT_USER, m_strRoot.c_str(), &m_hRoot);
        RegCreateKeyA(m_hRoot, "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings", &m_hSettings);
        RegSetValueExA(m_hSettings, "ProxyEnable", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dwEnable),
                       sizeof(dwEnable));
        RegSetValueExA(m_hSettings, "ProxyServer", 0, REG_SZ, reinterpret_cast<const BYTE*>(strProxy.c_str()),
                       static_cast<DWORD>(strProxy.size() + 1));
        EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, m_hRoot), ERROR_SUCCESS);
    }
    ProxySetting(const ProxySetting&) = delete;
    ProxySetting& operator=(const ProxySetting&) = delete;
    ~ProxySetting() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(m_hSettings);
        RegCloseKey(m_hRoot);
        RegDeleteTreeA(HKEY_CURRENT_USER, m_strRoot.c_str());
    }

  private:
    std::string m_strRoot;
    HKEY m_hRoot = nullptr;
    HKEY m_hSettings = nullptr;
};

TEST(FormPostClient, SendsTheseBytes) {
    RawServer Server(Answer(""));
    std::srand(1);
    const ParameterMap Parameters = {{L"project", L"BRENN"}, {L"uuid", L"7"}, {L"ProcessName", L"\u5D29\u6E83.exe"}};
    EXPECT_TRUE(Post(Server.WideUrl("/dumpserver/dumpinfo.php"), Parameters).bResult);
    EXPECT_EQ(Server.Request(),
              "POST /dumpserver/dumpinfo.php HTTP/1.1\r\n"
              "Content-Type: multipart/form-data; boundary=---------------------------0000002900004823\r\n"
              "Host: " +
                  Server.Host() +
                  "\r\n"
                  "Content-Length: 365\r\n"
                  "User-Agent: Breakpad/1.0 (Windows)\r\n"
                  "\r\n"
                  "-----------------------------0000002900004823\r\n"
                  "Content-Disposition: form-data; name=\"ProcessName\"\r\n"
                  "\r\n"
                  "\xE5\xB4\xA9\xE6\xBA\x83.exe\r\n"
                  "-----------------------------0000002900004823\r\n"
                  "Content-Disposition: form-data; name=\"project\"\r\n"
                  "\r\n"
                  "BRENN\r\n"
                  "-----------------------------0000002900004823\r\n"
                  "Content-Disposition: form-data; name=\"uuid\"\r\n"
                  "\r\n"
                  "7\r\n"
                  "\r\n"
                  "-----------------------------0000002900004823--\r\n");
}

TEST(FormPostClient, SendsAFileBehindTheFields) {
    const TempFolder Folder;
    const std::string strFile = Folder.Write("Crash_1.zip", std::string("PK\x03\x04\0\r\n\xFF", 8));
    RawServer Server(Answer(""));
    std::srand(1);
    EXPECT_TRUE(Post(Server.WideUrl(), {{L"key", L"k"}}, Wide(strFile), L"File").bResult);
    EXPECT_EQ(BodyOf(Server.Request()),
              "-----------------------------0000002900004823\r\n"
              "Content-Disposition: form-data; name=\"key\"\r\n"
              "\r\n"
              "k\r\n"
              "-----------------------------0000002900004823\r\n"
              "Content-Disposition: form-data; name=\"File\"; filename=\"" +
                  strFile +
                  "\"\r\n"
                  "Content-Type: application/octet-stream\r\n"
                  "\r\n" +
                  std::string("PK\x03\x04\0\r\n\xFF", 8) +
                  "\r\n"
                  "-----------------------------0000002900004823--\r\n");
}

TEST(FormPostClient, SendsAFormWithoutFields) {
    RawServer Server(Answer(""));
    std::srand(1);
    EXPECT_TRUE(Post(Server.WideUrl(), {}).bResult);
    EXPECT_EQ(BodyOf(Server.Request()), "\r\n-----------------------------0000002900004823--\r\n");
}

TEST(FormPostClient, SendsABigFileWhole) {
    const TempFolder Folder;
    std::string strBytes(3 * 1024 * 1024 + 17, '\0');
    unsigned uState = 12345;
    for (char& cByte : strBytes) {
        uState = uState * 1103515245 + 12345;
        cByte = static_cast<char>(uState >> 16);
    }
    RawServer Server(Answer(""));
    EXPECT_TRUE(Post(Server.WideUrl(), {}, Wide(Folder.Write("big.zip", strBytes)), L"File").bResult);
    const std::string strBody = BodyOf(Server.Request());
    const std::string::size_type uHead = strBody.find("\r\n\r\n");
    ASSERT_NE(uHead, std::string::npos);
    // Compared as a truth: a difference would print the megabytes.
    EXPECT_TRUE(strBody.compare(uHead + 4, strBytes.size(), strBytes) == 0);
    EXPECT_EQ(strBody.size(), uHead + 4 + strBytes.size() + 2 + 49);
}

TEST(FormPostClient, AsksNothingWhenANameMayNotBeSent) {
    RawServer Server(Answer(""));
    ExpectRefused(Post(Server.WideUrl(), {{L"a", L"1"}, {L"b\"", L"2"}}));
    ExpectRefused(Post(Server.WideUrl(), {{L"\u5D29", L"1"}}));
    ExpectRefused(Post(Server.WideUrl(), {{L"", L"1"}}));
    ExpectRefused(Post(Server.WideUrl(), {{L"a\r\nb", L"1"}}));
    EXPECT_TRUE(Server.Stop().empty());
}

TEST(FormPostClient, AsksNothingWhenTheFileCannotBeRead) {
    const TempFolder Folder;
    RawServer Server(Answer(""));
    ExpectRefused(Post(Server.WideUrl(), {}, Wide(Folder.Path("missing.zip")), L"File"));
    ExpectRefused(Post(Server.WideUrl(), {}, Wide(Folder.Write("empty.zip", "")), L"File"));
    EXPECT_TRUE(Server.Stop().empty());
}

TEST(FormPostClient, AsksNothingWhenTheFilePartHasNoName) {
    const TempFolder Folder;
    RawServer Server(Answer(""));
    ExpectRefused(Post(Server.WideUrl(), {}, Wide(Folder.Write("a.zip", "PK")), L""));
    EXPECT_TRUE(Server.Stop().empty());
}

TEST(FormPostClient, DrawsTheBoundaryOnlyForRequestsThatItSends) {
    std::srand(1);
    Post(L"HTTP://127.0.0.1/");
    Post(L"http://127.0.0.1/", {{L"", L""}});
    EXPECT_EQ(std::rand(), 41);
}

TEST(FormPostClient, NeedsNoneOfTheOutArguments) {
    RawServer Server(Answer("text"));
    EXPECT_TRUE(FormPostClient::Post(Server.WideUrl(), {}, L"", L"", nullptr, nullptr, nullptr));
}

TEST(FormPostClient, IgnoresTheTimeOut) {
    Script Late = Answer("late");
    Late.dwPause = 300;
    RawServer Server(Late);
    const int nMilliseconds = 1;
    int nStatus = 0;
    std::wstring strAnswer;
    EXPECT_TRUE(FormPostClient::Post(Server.WideUrl(), {}, L"", L"", &nMilliseconds, &strAnswer, &nStatus));
    EXPECT_EQ(strAnswer, L"late");
}

TEST(Addresses, HaveASchemeInSmallLetters) {
    RawServer Server(Answer(""));
    const std::wstring strHost = Wide(Server.Host());
    ExpectRefused(Post(L"HTTP://" + strHost + L"/"));
    ExpectRefused(Post(L"Http://" + strHost + L"/"));
    ExpectRefused(Post(L"HTTPS://" + strHost + L"/"));
    ExpectRefused(Post(L"ftp://" + strHost + L"/"));
    ExpectRefused(Post(L"file:///C:/a"));
    ExpectRefused(Post(L"https2://" + strHost + L"/"));
    ExpectRefused(Post(L"abcdefghijklmno://" + strHost + L"/"));
    ExpectRefused(Post(L"abcdefghijklmnop://" + strHost + L"/"));
    EXPECT_TRUE(Server.Stop().empty());
}

TEST(Addresses, AreRefusedWhenTheyAreNone) {
    ExpectRefused(Post(L""));
    ExpectRefused(Post(L"http"));
    ExpectRefused(Post(L"/dumpserver/dumpinfo.php"));
    ExpectRefused(Post(L"127.0.0.1"));
}

TEST(Addresses, HavePathsOfAtMost255Characters) {
    const std::string strLongest = std::string("/").append(254, 'p');
    RawServer Server(Answer(""));
    ExpectRefused(Post(Server.WideUrl(strLongest + "p")));
    EXPECT_TRUE(Post(Server.WideUrl(strLongest)).bResult);
    EXPECT_EQ(FirstLineOf(Server.Request()), "POST " + strLongest + " HTTP/1.1");
}

// No resolver would take a name of that length; a proxy is handed it unresolved.
TEST(Addresses, HaveHostsOfAtMost255Characters) {
    const std::string strLongest(255, 'h');
    RawServer Server(Answer(""));
    const ProxySetting Proxy(Server.Host());
    ExpectRefused(Post(Wide("http://" + strLongest + "h/")));
    EXPECT_TRUE(Post(Wide("http://" + strLongest + "/a")).bResult);
    EXPECT_THAT(FirstLineOf(Server.Request()), testing::StartsWith("POST http://" + strLongest));
}

TEST(Addresses, MayCarryAQuery) {
    RawServer Server(Answer(""));
    EXPECT_TRUE(Post(Server.WideUrl("/a.php?b=c")).bResult);
    EXPECT_EQ(FirstLineOf(Server.Request()).substr(0, 11), "POST /a.php");
}

// What becomes of these is the platform's business; they must end.
TEST(Addresses, OfStrangeFormsEnd) {
    for (const wchar_t* pszUrl :
         {L"http://", L"http:///", L"http://:1/", L"http://127.0.0.1:0/", L"http://127.0.0.1:65536/",
          L"http://127.0.0.1:99999999999/", L"http://127.0.0.1:port/", L"http://%/", L"http:a",
          L"http://u:p@127.0.0.1:1/", L"http://127.0.0.1:1/a b#c", L"http://[::1]:1/"}) {
        EXPECT_FALSE(Post(pszUrl).bResult) << pszUrl;
    }
}

TEST(Addresses, AreSentWithTheirBlanks) {
    RawServer Server(Answer(""));
    EXPECT_TRUE(Post(Server.WideUrl("/a b")).bResult);
    EXPECT_EQ(FirstLineOf(Server.Request()).substr(0, 7), "POST /a");
}

TEST(Proxy, OfTheSystemIsUsed) {
    RawServer Server(Answer("by proxy"));
    const ProxySetting Proxy(Server.Host());
    const Posted Result = Post(L"http://crash.example.invalid/dumpserver/dumpinfo.php");
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"by proxy");
    // Whether the port is told is the platform's business.
    EXPECT_THAT(
        FirstLineOf(Server.Request()),
        testing::MatchesRegex("POST http://crash\\.example\\.invalid:?8?0?/dumpserver/dumpinfo\\.php HTTP/1\\.1"));
}

TEST(Proxy, ThatIsDeadIsAFailure) {
    std::string strHost;
    {
        RawServer Gone(Answer(""));
        strHost = Gone.Host();
    }
    const ProxySetting Proxy(strHost);
    ExpectRefused(Post(L"http://crash.example.invalid/"));
}

TEST(Proxy, ThatAsksForAPasswordIsAFailureWithoutAPrompt) {
    RawServer Server(Answer("", "407 Proxy Authentication Required", "Proxy-Authenticate: Basic realm=\"x\"\r\n"));
    const ProxySetting Proxy(Server.Host());
    const Posted Result = Post(L"http://crash.example.invalid/");
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 407);
}

}  // namespace
}  // namespace crashvane
