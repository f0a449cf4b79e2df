// Memory of the client: how much it takes, and what happens when there is none.
#include "net/RawServer.h"

#include "net/FormPostClient.h"

#include <gtest/gtest.h>

#include "net/AllocationWatch.h"
#include "net/TempFolder.h"

namespace crashvane {
namespace {

struct Upload {
    std::wstring strUrl;
    ParameterMap Parameters = {{L"key", L"0123456789"}, {L"remark", std::wstring(1000, L'r')}};
    std::wstring strFile;
    std::wstring strPart = L"File";
    std::wstring strAnswer;
    int nStatus = 0;

    bool Send() { return FormPostClient::Post(strUrl, Parameters, strFile, strPart, nullptr, &strAnswer, &nStatus); }
};

// Every allocation of a successful call fails once, in turn.
void FailEachAllocation(AllocationWatch::Refusal Kind) {
    const TempFolder Folder;
    RawServer Server(Answer(std::string(100, 'a')));
    Upload Request;
    Request.strUrl = Server.WideUrl();
    Request.strFile = Wide(Folder.Write("a.zip", "PK-bytes"));
    std::size_t uFailing = 1;
    for (;; ++uFailing) {
        bool bSent = true;
        std::size_t uRefused = 0;
        ASSERT_NO_THROW({
            const AllocationWatch Watch(uFailing, Kind);
            bSent = Request.Send();
            uRefused = AllocationWatch::Refused();
        });
        if (uRefused == 0) {
            EXPECT_TRUE(bSent);
            break;
        }
        EXPECT_FALSE(bSent) << "allocation " << uFailing;
    }
    // Field texts, head, body and answer at least.
    EXPECT_GT(uFailing, 5u);
}

TEST(FormPostMemory, ThatRunsOutOnceIsAFailureAndNeverAnException) {
    FailEachAllocation(AllocationWatch::RefuseOnce);
}

TEST(FormPostMemory, ThatRunsOutForGoodIsAFailureAndNeverAnException) {
    FailEachAllocation(AllocationWatch::RefuseFromThereOn);
}

TEST(FormPostMemory, IsTheFileOnceAndLittleElse) {
    constexpr std::size_t FILE_SIZE = 8 * 1024 * 1024;
    const TempFolder Folder;
    RawServer Server(Answer(""));
    Upload Request;
    Request.strUrl = Server.WideUrl();
    Request.strFile = Wide(Folder.Write("a.zip", std::string(FILE_SIZE, 'z')));
    const AllocationWatch Watch;
    EXPECT_TRUE(Request.Send());
    EXPECT_GT(AllocationWatch::Bytes(), FILE_SIZE);
    EXPECT_LT(AllocationWatch::Bytes(), FILE_SIZE + 65536);
}

TEST(FormPostMemory, IsNotTakenForALengthThatIsAnnouncedAndDoesNotCome) {
    RawServer Server(RawAnswer("Content-Length: 2000000000\r\n", "abc"));
    Upload Request;
    Request.strUrl = Server.WideUrl();
    const AllocationWatch Watch;
    EXPECT_FALSE(Request.Send());
    EXPECT_LT(AllocationWatch::Bytes(), 65536u);
}

}  // namespace
}  // namespace crashvane
