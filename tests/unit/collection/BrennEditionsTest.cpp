#include "collection/BrennEditions.h"

#include <gtest/gtest.h>

#include "collection/Installation.h"

namespace crashvane {
namespace {

struct VersionExRow {
    const char* pszExecutable;
    const char* pszCodeName;
    const char* pszVersionEx;
};

class BrennVersionExTable : public testing::TestWithParam<VersionExRow> {};

TEST_P(BrennVersionExTable, ComesFromCodeNameAndExecutable) {
    for (const std::string& strExecutable : test::Spellings(GetParam().pszExecutable)) {
        EXPECT_EQ(BrennVersionEx(strExecutable, GetParam().pszCodeName, "-ex-", "zhcn"), GetParam().pszVersionEx)
            << strExecutable;
    }
}

INSTANTIATE_TEST_SUITE_P(
    CodeNamePakV4, BrennVersionExTable,
    testing::Values(VersionExRow{"ztpk4_streamdownloaderx64.exe", "pakv4", "pakv4_streamdownloader"},
                    VersionExRow{"ztpk4_streamdownloaderx64d.exe", "pakv4", "pakv4_streamdownloader"},
                    VersionExRow{"brennclient.exe", "pakv4", "pakv4_-ex-zhcn"},
                    VersionExRow{"mpak_downloader.exe", "pakv4", "mpak_downloader"},
                    VersionExRow{"brennbenchmarkx64.exe", "pakv4", "benchmark"},
                    VersionExRow{"brennconsolex64.exe", "pakv4", "console"},
                    VersionExRow{"brennclientx64.exe", "pakv4", ""}, VersionExRow{"", "pakv4", ""}));

INSTANTIATE_TEST_SUITE_P(OtherCodeNames, BrennVersionExTable,
                         testing::Values(VersionExRow{"ztpk4_streamdownloaderx64.exe", "pakv3", ""},
                                         VersionExRow{"ztpk4_streamdownloaderx64d.exe", "", ""},
                                         VersionExRow{"brennclient.exe", "", "-ex-zhcn"},
                                         VersionExRow{"brennclient.exe", "PAKV4", "-ex-zhcn"},
                                         VersionExRow{"brennclient.exe", "pakv4 ", "-ex-zhcn"},
                                         VersionExRow{"brennclient.exe", "pakv", "-ex-zhcn"},
                                         VersionExRow{"mpak_downloader.exe", "", "mpak_downloader"},
                                         VersionExRow{"brennbenchmarkx64.exe", "", "benchmark"},
                                         VersionExRow{"brennconsolex64.exe", "", "console"},
                                         VersionExRow{"brennclientx64.exe", "", ""}, VersionExRow{"", "", ""}));

TEST(BrennImageId, IsTheLineNamesOwn) {
    EXPECT_EQ(BrennImageId("zhkr"), 151);
    EXPECT_EQ(BrennImageId("vivn"), 156);
    EXPECT_EQ(BrennImageId("zhtw"), 158);
}

TEST(BrennImageId, IsTheCommonOneForEveryOtherText) {
    for (const char* pszLineName : {"", "zhcn", "ZHTW", "zhtw ", "zht", "zhtwx", "Zhkr", "VIVN"}) {
        EXPECT_EQ(BrennImageId(pszLineName), 130) << pszLineName;
    }
}

TEST(FirstFolderBelow, IsWhatStandsBetweenTheFolderAndTheNextSeparator) {
    EXPECT_EQ(FirstFolderBelow("C:\\g\\userdata", "C:\\g\\userdata\\somebody\\login.ini"), "somebody");
    EXPECT_EQ(FirstFolderBelow("C:\\g\\userdata", "C:\\g\\userdata\\a b\\c\\login.ini"), "a b");
}

TEST(FirstFolderBelow, IsEmptyForAFileInTheFolderItself) {
    EXPECT_EQ(FirstFolderBelow("C:\\g\\userdata", "C:\\g\\userdata\\login.ini"), "");
    EXPECT_EQ(FirstFolderBelow("C:\\g\\userdata", "C:\\g\\userdata"), "");
}

}  // namespace
}  // namespace crashvane
