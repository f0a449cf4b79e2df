// The products that tell who played last.
#include <gmock/gmock.h>

#include "collection/BrennCollection.h"
#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using test::CrashTime;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> LoginOf(const Collection& Collector) {
    return {Collector.m_strAccount, Collector.m_strRoleName, Collector.m_strRegionName, Collector.m_strServerName};
}

class LastLoginTest : public test::CollectorTest {
  protected:
    template <typename Class>
    void ExpectNone() {
        const auto pCollector = test::MakeCollector<Class>();
        EXPECT_EQ(pCollector->CollectLoginInfo(), 0);
        EXPECT_THAT(LoginOf(*pCollector), ElementsAre("", "", "", ""));
        EXPECT_THAT(Checks(), IsEmpty());
    }
    std::string LoginAt(const std::string& strName, const std::string& strRole, long long nAway) {
        return m_Installation.WriteAt(strName,
                                      "[LastLogin]\r\nRoleName=" + strRole +
                                          "\r\nRegionName=the region\r\nServerName=the server\r\nAccount=not this\r\n",
                                      CrashTime + nAway);
    }
    std::vector<std::string> BrennLogin(int nExpected = 1) {
        const auto pCollector = test::MakeCollector<BrennCollection>();
        EXPECT_EQ(pCollector->CollectLoginInfo(), nExpected);
        return LoginOf(*pCollector);
    }
};

TEST_F(LastLoginTest, FyrnKeepsItInATemporaryFile) {
    m_Installation.Write("UserData\\Temp\\dumpinfo.ini",
                         "[Main]\r\nRoleName=r\r\nAccount=a\r\nZoneName=z\r\nSvrName=s\r\nRegionName=not this\r\n");
    const auto pCollector = test::MakeCollector<FyrnCollection>();
    EXPECT_EQ(pCollector->CollectLoginInfo(), 1);
    EXPECT_THAT(LoginOf(*pCollector), ElementsAre("a", "r", "z", "s"));
}

TEST_F(LastLoginTest, FyrnHasNoneWithoutTheFile) {
    ExpectNone<FyrnCollection>();
    m_Installation.MakeFolder("UserData\\Temp\\dumpinfo.ini");
    ExpectNone<FyrnCollection>();
}

TEST_F(LastLoginTest, GaldorKeepsItInThePlayersSettings) {
    m_Installation.Write(
        "user\\setting.ini",
        "[Login]\r\nServerName=s\r\nRegionName=z\r\nRoleName=r\r\nAccount=a\r\n[Main]\r\nAccount=b\r\n");
    const auto pCollector = test::MakeCollector<GaldorCollection>();
    EXPECT_EQ(pCollector->CollectLoginInfo(), 1);
    EXPECT_THAT(LoginOf(*pCollector), ElementsAre("a", "r", "z", "s"));
}

TEST_F(LastLoginTest, GaldorHasNoneWithoutTheFile) {
    ExpectNone<GaldorCollection>();
    m_Installation.MakeFolder("user\\setting.ini");
    ExpectNone<GaldorCollection>();
}

TEST_F(LastLoginTest, BrennTakesTheAccountsFolderForItsName) {
    LoginAt("..\\userdata\\somebody\\login.ini", "hero", 10);
    EXPECT_THAT(BrennLogin(), ElementsAre("somebody", "hero", "the region", "the server"));
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(LastLoginTest, BrennTakesTheLoginNearestToTheCrash) {
    LoginAt("..\\userdata\\first\\login.ini", "a", -3000);
    LoginAt("..\\userdata\\second\\login.ini", "b", -20);
    LoginAt("..\\userdata\\third\\login.ini", "c", 21);
    EXPECT_THAT(BrennLogin(), ElementsAre("second", "b", "the region", "the server"));
}

TEST_F(LastLoginTest, BrennKeepsTheFirstFoundOnATie) {
    LoginAt("..\\userdata\\login.ini", "own", -20);
    LoginAt("..\\userdata\\tied\\login.ini", "below", 20);
    EXPECT_THAT(BrennLogin(), ElementsAre("tied", "below", "the region", "the server"));
}

TEST_F(LastLoginTest, BrennLeavesTheAccountAloneForAFileOutsideAllAccounts) {
    LoginAt("..\\userdata\\login.ini", "nobody's", 0);
    const auto pCollector = test::MakeCollector<BrennCollection>();
    pCollector->m_strAccount = "as it was";
    EXPECT_EQ(pCollector->CollectLoginInfo(), 1);
    EXPECT_THAT(LoginOf(*pCollector), ElementsAre("as it was", "nobody's", "the region", "the server"));
}

TEST_F(LastLoginTest, BrennLooksOneLevelDownAndNoDeeper) {
    LoginAt("..\\userdata\\a\\b\\login.ini", "deep", 0);
    ExpectNone<BrennCollection>();
}

TEST_F(LastLoginTest, BrennTakesLoginsAnHourAwayAndNoneFartherOff) {
    for (const long long nSide : {-1, 1}) {
        const std::string strPath =
            LoginAt("..\\userdata\\hour" + std::to_string(nSide) + "\\login.ini", "h", nSide * 3600);
        EXPECT_EQ(BrennLogin()[1], "h");
        test::SetWritten(strPath, CrashTime + nSide * 3601);
        ExpectNone<BrennCollection>();
    }
}

TEST_F(LastLoginTest, BrennHasNoneWithoutFolderOrFile) {
    ExpectNone<BrennCollection>();
    m_Installation.MakeFolder("..\\userdata\\somebody\\login.ini");
    LoginAt("..\\userdata\\somebody\\login.ini.bak", "x", 0);
    ExpectNone<BrennCollection>();
}

TEST_F(LastLoginTest, BrennHasNoneWhenTheFolderIsAFile) {
    m_Installation.Write("..\\userdata", "");
    ExpectNone<BrennCollection>();
}

TEST_F(LastLoginTest, BrennReadsNothingOfAFileThatAnotherProcessHoldsAlone) {
    const std::string strPath = LoginAt("..\\userdata\\locked\\login.ini", "hero", 0);
    const test::Locked Lock(strPath);
    EXPECT_THAT(BrennLogin(), ElementsAre("locked", "", "", ""));
}

}  // namespace
}  // namespace crashvane
