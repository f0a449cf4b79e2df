// What comes back: statuses, lengths, broken connections.
#include "net/RawServer.h"

#include "net/FormPostClient.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "net/Posting.h"
#include "net/TempFolder.h"

namespace crashvane {
namespace {

Posted PostToServerThatAnswers(const Script& Play) {
    RawServer Server(Play);
    return Post(Server.WideUrl());
}

class FormPostStatus : public testing::TestWithParam<int> {};

TEST_P(FormPostStatus, IsHandedBackAndIsAFailure) {
    const Posted Result = PostToServerThatAnswers(Answer("3", std::to_string(GetParam()) + " Word"));
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, GetParam());
    EXPECT_EQ(Result.strAnswer, L"untouched");
}

INSTANTIATE_TEST_SUITE_P(OtherThan200, FormPostStatus,
                         testing::Values(201, 202, 203, 206, 300, 301, 302, 303, 305, 307, 308, 400, 401, 403, 404, 405,
                                         407, 413, 429, 500, 501, 502, 503, 999));

TEST(FormPostAnswer, OfStatus200IsHandedBack) {
    const Posted Result = PostToServerThatAnswers(Answer("3\r\n"));
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 200);
    EXPECT_EQ(Result.strAnswer, L"3\r\n");
}

TEST(FormPostAnswer, MayBeEmpty) {
    const Posted Result = PostToServerThatAnswers(Answer(""));
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 200);
    EXPECT_EQ(Result.strAnswer, L"");
}

TEST(FormPostAnswer, WithoutContentIsAFailure) {
    const Posted Result = PostToServerThatAnswers({"HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n"});
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 204);
}

// The status is asked for with room for three digits.
TEST(FormPostAnswer, WithAStatusOfFourDigitsIsAFailure) {
    const Posted Result = PostToServerThatAnswers(Answer("", "2000 OK"));
    EXPECT_FALSE(Result.bResult);
    EXPECT_NE(Result.nStatus, 200);
}

TEST(FormPostAnswer, WithAStatusOfLettersIsAFailure) {
    const Posted Result = PostToServerThatAnswers(Answer("", "abc OK"));
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 0);
}

TEST(FormPostAnswer, AfterAContinueIsTheRealOne) {
    Script Play = Answer("3");
    Play.strAnswer.insert(0, "HTTP/1.1 100 Continue\r\n\r\n");
    const Posted Result = PostToServerThatAnswers(Play);
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"3");
}

TEST(FormPostAnswer, OfTheAddressThatARedirectNamesCounts) {
    RawServer Target(Answer("found"));
    RawServer Server(Answer("", "302 Found", "Location: " + Target.Url("/other") + "\r\n"));
    const Posted Result = Post(Server.WideUrl());
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"found");
    EXPECT_EQ(FirstLineOf(Target.Request()), "GET /other HTTP/1.1");
}

TEST(FormPostAnswer, OfARedirectIntoTheVoidIsAFailure) {
    RawServer Target(Answer("", "404 Not Found"));
    RawServer Server(Answer("", "301 Moved Permanently", "Location: " + Target.Url("/gone") + "\r\n"));
    const Posted Result = Post(Server.WideUrl());
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 404);
}

TEST(FormPostAnswer, ShorterThanAnnouncedIsAFailureThoughTheStatusReads200) {
    const Posted Result = PostToServerThatAnswers(RawAnswer("Content-Length: 10\r\n", "123456789"));
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 200);
    EXPECT_EQ(Result.strAnswer, L"untouched");
}

TEST(FormPostAnswer, ThatIsAnnouncedAndNeverComesIsAFailure) {
    const Posted Result = PostToServerThatAnswers(RawAnswer("Content-Length: 10\r\n", ""));
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 200);
}

// A platform may cut what is too long, which makes the answer whole, or hand all of it over.
TEST(FormPostAnswer, LongerThanAnnouncedIsAFailureUnlessThePlatformCutsIt) {
    const Posted Result = PostToServerThatAnswers(RawAnswer("Content-Length: 3\r\n", "123456789"));
    EXPECT_EQ(Result.nStatus, 200);
    EXPECT_EQ(Result.strAnswer, Result.bResult ? L"123" : L"untouched");
}

TEST(FormPostAnswer, WithANegativeOrAbsurdLengthIsAFailure) {
    for (const char* pszLength : {"-1", "-10", "2147483647", "99999999999", "4294967299"}) {
        const Posted Result =
            PostToServerThatAnswers(RawAnswer("Content-Length: " + std::string(pszLength) + "\r\n", "abc"));
        EXPECT_FALSE(Result.bResult) << pszLength;
        EXPECT_EQ(Result.nStatus, 200) << pszLength;
    }
}

TEST(FormPostAnswer, WithoutALengthEndsWithTheConnection) {
    const Posted Result = PostToServerThatAnswers(RawAnswer("", "text"));
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"text");
}

TEST(FormPostAnswer, InChunksIsPutTogether) {
    const Posted Result = PostToServerThatAnswers(
        RawAnswer("Transfer-Encoding: chunked\r\n", "3\r\nabc\r\nA\r\n0123456789\r\n0\r\n\r\n"));
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"abc0123456789");
}

// Nothing was announced that could be missed: what came counts, or the platform reports the cut.
TEST(FormPostAnswer, CutInAChunkHoldsNothingThatDidNotCome) {
    const Posted Result = PostToServerThatAnswers(RawAnswer("Transfer-Encoding: chunked\r\n", "3\r\nabc\r\nA\r\n0123"));
    EXPECT_EQ(Result.nStatus, 200);
    EXPECT_EQ(Result.strAnswer, Result.bResult ? L"abc0123" : L"untouched");
}

TEST(FormPostAnswer, InManyPiecesIsPutTogether) {
    Script Play = Answer("0123456789");
    Play.uPiece = 7;
    Play.dwPause = 10;
    const Posted Result = PostToServerThatAnswers(Play);
    EXPECT_TRUE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"0123456789");
}

TEST(FormPostAnswer, OfThirtyMegabytesIsReadWhole) {
    std::string strBody;
    for (int nLine = 0; strBody.size() < 30 * 1024 * 1024; ++nLine) {
        strBody += std::to_string(nLine) + "\n";
    }
    RawServer Server(Answer(strBody));
    const Posted Result = Post(Server.WideUrl());
    EXPECT_TRUE(Result.bResult);
    EXPECT_TRUE(Result.strAnswer == Wide(strBody));
}

TEST(FormPostAnswer, IsUtf8UpToItsFirstZero) {
    EXPECT_EQ(PostToServerThatAnswers(Answer("\xE5\xB4\xA9")).strAnswer, L"\u5D29");
    EXPECT_EQ(PostToServerThatAnswers(Answer("\xFF"
                                             "3"))
                  .strAnswer,
              L"\uFFFD"
              L"3");
    EXPECT_EQ(PostToServerThatAnswers(Answer("\xEF\xBB\xBF"
                                             "3"))
                  .strAnswer,
              L"\uFEFF"
              L"3");
    EXPECT_EQ(PostToServerThatAnswers(Answer(std::string("3\0"
                                                         "4",
                                                         3)))
                  .strAnswer,
              L"3");
}

TEST(FormPostAnswer, WithThousandsOfHeadersEnds) {
    std::string strHeaders;
    for (int nAt = 0; nAt < 10000; ++nAt) {
        strHeaders += "X-" + std::to_string(nAt) + ": v\r\n";
    }
    EXPECT_TRUE(PostToServerThatAnswers(Answer("3", "200 OK", strHeaders)).bResult);
}

TEST(FormPostAnswer, WithAHugeHeaderEnds) {
    const Posted Result =
        PostToServerThatAnswers(Answer("3", "200 OK", "X-Long: " + std::string(1024 * 1024, 'x') + "\r\n"));
    EXPECT_TRUE(Result.strAnswer == (Result.bResult ? L"3" : L"untouched"));
}

TEST(FormPostAnswer, ThatIsNoHttpEnds) {
    for (const std::string& strAnswer :
         {std::string("garbage"), std::string("\0\0\0\0\r\n\r\n", 8), std::string("\r\n\r\n"),
          std::string("HTTP/1.1\r\n\r\n"), std::string("HTTP/1.1 200 OK\r\n"), std::string("SSH-2.0-server\r\n"),
          std::string("HTTP/1.1 200 OK\r\nContent-Length: 3\r\nX: a\0b\r\n\r\nabc", 53)}) {
        const Posted Result = PostToServerThatAnswers({strAnswer});
        EXPECT_TRUE(Result.bResult || Result.strAnswer == L"untouched");
    }
}

TEST(BrokenConnection, RefusedIsAFailure) {
    std::wstring strUrl;
    {
        RawServer Gone(Answer(""));
        strUrl = Gone.WideUrl();
    }
    const Posted Result = Post(strUrl);
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 0);
    EXPECT_EQ(Result.strAnswer, L"untouched");
}

TEST(BrokenConnection, OfAnUnknownHostIsAFailure) {
    const Posted Result = Post(L"http://no-such-host.invalid/");
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.nStatus, 0);
}

TEST(BrokenConnection, BeforeTheAnswerIsAFailureThoughThePlatformCallsItSent) {
    const Posted Result = PostToServerThatAnswers({""});
    EXPECT_FALSE(Result.bResult);
    EXPECT_NE(Result.nStatus, 200);
}

TEST(BrokenConnection, BeforeTheRequestWasReadIsAFailure) {
    EXPECT_FALSE(PostToServerThatAnswers({"", 1}).bResult);
    EXPECT_FALSE(PostToServerThatAnswers({"", 0, true}).bResult);
}

TEST(BrokenConnection, InTheMiddleOfTheUploadIsAFailure) {
    const TempFolder Folder;
    RawServer Server(Script{"", 4096, true});
    const std::string strFile = Folder.Write("a.zip", std::string(500000, 'z'));
    const Posted Result = Post(Server.WideUrl(), {}, Wide(strFile), L"File");
    EXPECT_FALSE(Result.bResult);
    EXPECT_NE(Result.nStatus, 200);
}

TEST(BrokenConnection, InTheMiddleOfTheAnswersHeadIsAFailure) {
    EXPECT_FALSE(PostToServerThatAnswers({"HTTP/1.1 2"}).bResult);
}

TEST(BrokenConnection, ByResetInTheMiddleOfTheAnswerIsAFailure) {
    Script Play = RawAnswer("Content-Length: 100000\r\n", std::string(1000, 'x'));
    Play.bReset = true;
    const Posted Result = PostToServerThatAnswers(Play);
    EXPECT_FALSE(Result.bResult);
    EXPECT_EQ(Result.strAnswer, L"untouched");
}

TEST(SecureConnection, ToAServerThatTalksPlainHttpIsAFailure) {
    RawServer Server(Script{"HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\nConnection: close\r\n\r\n", 32});
    const Posted Result = Post(Wide("https://" + Server.Host() + "/"));
    EXPECT_FALSE(Result.bResult);
    EXPECT_NE(Result.nStatus, 200);
    const std::string strHello = Server.Stop().at(0);
    // A TLS handshake record: the form itself was not sent in the clear.
    ASSERT_GE(strHello.size(), 3u);
    EXPECT_EQ(strHello.substr(0, 2), "\x16\x03");
}

}  // namespace
}  // namespace crashvane
