// Version files as the world leaves them: folders, binary, empty, huge, without a section, held open.
#include <gmock/gmock.h>

#include <functional>

#include "collection/BrennCollection.h"
#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using test::CollectorTest;
using test::ProcessError;
using testing::ElementsAre;
using testing::IsEmpty;

template <typename Class>
std::unique_ptr<Collection> Make(const std::string& strExecutable) {
    return test::MakeCollector<Class>(strExecutable);
}

struct Row {
    const char* pszName;
    std::function<std::unique_ptr<Collection>(const std::string&)> Maker;
    const char* pszExecutable;
    const char* pszFile;
    int nWithoutFile;              // result of CollectVersion
    const char* pszLine;           // function of the one check line then; null: no line
    const char* pszVersionExThen;  // null: stays as the report has it
    const char* pszEmptyVersion;   // version of a file that holds nothing
    const char* pszEmptyVersionEx;
};

class VersionFile : public CollectorTest, public testing::WithParamInterface<Row> {
  protected:
    void SetUp() override { m_pCollector = GetParam().Maker(GetParam().pszExecutable); }
    const Product& Result() const { return m_pCollector->m_CrashReporter.Product; }

    void ExpectMissing() {
        EXPECT_EQ(m_pCollector->CollectVersion(), GetParam().nWithoutFile);
        EXPECT_EQ(Result().ProductVersion, "version of the report");
        EXPECT_EQ(Result().ProductVersionEx,
                  GetParam().pszVersionExThen != nullptr ? GetParam().pszVersionExThen : "version ex of the report");
        if (GetParam().pszLine != nullptr) {
            EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", GetParam().pszLine)));
        } else {
            EXPECT_THAT(Checks(), IsEmpty());
        }
    }
    void ExpectNothingIn() {
        EXPECT_EQ(m_pCollector->CollectVersion(), 1);
        EXPECT_EQ(Result().ProductVersion, GetParam().pszEmptyVersion);
        EXPECT_EQ(Result().ProductVersionEx, GetParam().pszEmptyVersionEx);
        EXPECT_THAT(Checks(), IsEmpty());
    }

    std::unique_ptr<Collection> m_pCollector;
};

TEST_P(VersionFile, IsMissing) {
    ExpectMissing();
}

TEST_P(VersionFile, CountsAsMissingWhenItIsAFolder) {
    m_Installation.MakeFolder(GetParam().pszFile);
    ExpectMissing();
}

TEST_P(VersionFile, GivesEmptyValuesAndNoLineWhenEmpty) {
    m_Installation.Write(GetParam().pszFile, "");
    ExpectNothingIn();
}

TEST_P(VersionFile, GivesEmptyValuesAndNoLineWithoutItsSection) {
    m_Installation.Write(GetParam().pszFile, "version=1\r\n[Other]\r\nversion=2\r\nMajorVersion=3\r\n");
    ExpectNothingIn();
}

TEST_P(VersionFile, GivesEmptyValuesAndNoLineWhenBinary) {
    std::string strBytes = "MZ\x90";
    for (int nByte = 0; nByte < 100000; ++nByte) {
        strBytes += static_cast<char>(nByte * 7919 >> 3);
    }
    m_Installation.Write(GetParam().pszFile, strBytes);
    ExpectNothingIn();
}

TEST_P(VersionFile, GivesEmptyValuesAndNoLineWhileAnotherProcessHoldsItAlone) {
    const std::string strPath = m_Installation.Write(GetParam().pszFile, "[Version]\r\nversion=1\r\n");
    const test::Locked Lock(strPath);
    ExpectNothingIn();
}

constexpr const char* OfTheReport = "version of the report";

INSTANTIATE_TEST_SUITE_P(
    , VersionFile,
    testing::Values(
        Row{"Default", Make<DefaultCollection>, "a.exe", "version.cfg", 0, "Collection::CollectVersion", nullptr,
            "_SVN", ""},
        Row{"Galdor", Make<GaldorCollection>, "a.exe", "version.cfg", 0, "Collection::CollectVersion", nullptr, "_SVN",
            ""},
        Row{"Brenn", Make<BrennCollection>, "brennclient.exe", "..\\version.cfg", 0, "BrennCollection::CollectVersion",
            nullptr, "_SVN", ""},
        Row{"Editor", Make<EditorCollection>, "a.exe", "version.cfg", 1, "EditorCollection::GetVersionExA", "", "", ""},
        Row{"Tool", Make<ToolCollection>, "a.exe", "version.cfg", 1, "ToolCollection::GetVersionExA", "", "", ""},
        Row{"IvorelGameClient", Make<IvorelGameClientCollection>, "a.exe", "version.cfg", 1,
            "IvorelGameClientCollection::GetVersionExA", "", "", ""},
        Row{"Mendwell", Make<MendwellCollection>, "a.exe", "version.cfg", 1, "MendwellCollection::GetVersionExA", "",
            "", ""},
        Row{"Dovek", Make<DovekCollection>, "a.exe", "version.cfg", 1, "DovekCollection::GetVersionExA", "", "", ""},
        Row{"Cymra", Make<CymraCollection>, "gamexp.exe", "version.cfg", 0, "CymraCollection::CollectVersion",
            "zhcn-exp", "._SVN", "zhcn-exp"},
        Row{"Essarn", Make<EssarnCollection>, "a.exe", "version.cfg", 1, nullptr, "zhcn", ".", "zhcn"},
        Row{"Orvel", Make<OrvelCollection>, "gamecl.exe", "version.cfg", 0, "OrvelCollection::CollectVersion",
            "orvelcl", ".", "orvelcl"},
        Row{"TalisByList", Make<TalisCollection>, "taliswz.exe", "versionlist.cfg", 0,
            "TalisCollection::CollectVersion", "wzzhcn", "..", "wzzhcn"},
        Row{"TalisByConfig", Make<TalisCollection>, "talisvgame.exe", "config.ini", 0,
            "TalisCollection::CollectVersion", "vi_vn", "", "vi_vn"},
        Row{"Hesk", Make<HeskCollection>, "a.exe", "update.ini", 0, "HeskCollection::CollectVersion", "zhcn", "",
            "zhcn"},
        Row{"Fyrn", Make<FyrnCollection>, "fyrn.exe", "version.cfg", 0, "FyrnCollection::CollectVersion", "zhcn",
            OfTheReport, ""},
        Row{"FyrnExp", Make<FyrnCollection>, "fyrnexp.exe", "version_exp.cfg", 0, "FyrnCollection::CollectVersion",
            "expzhcn", "", "expzhcn"}),
    [](const auto& Info) { return std::string(Info.param.pszName); });

class HugeVersionFile : public CollectorTest {
  protected:
    static constexpr std::size_t Size = 50u << 20;
};

TEST_F(HugeVersionFile, IsReadWhenItIsOneLongLine) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1\r\nversionName=x\r\nlong=" + std::string(Size, 'y'));
    const auto pCollector = test::MakeCollector<ToolCollection>();
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, "1");
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, "x");
}

TEST_F(HugeVersionFile, IsReadWhenItHoldsNothingButZeros) {
    m_Installation.Write("version.cfg", std::string(Size, '\0'));
    const auto pCollector = test::MakeCollector<ToolCollection>();
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, "");
}

}  // namespace
}  // namespace crashvane
