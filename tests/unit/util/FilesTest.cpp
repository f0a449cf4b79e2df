#include "util/Files.h"

#include <gmock/gmock.h>

#include "support/TempFolder.h"

namespace crashvane {
namespace {

using test::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(FindFiles, GoesExactlyOneLevelDown) {
    TempFolder Folder;
    Folder.Write("zero.log", "");
    Folder.Write("a\\one.log", "");
    Folder.Write("a\\b\\two.log", "");
    std::vector<std::string> Found;
    EXPECT_TRUE(FindFiles(Found, Folder.Path(), "*.log", false));
    EXPECT_THAT(Found, ElementsAre(Folder.Path("a\\one.log"), Folder.Path("zero.log")));
}

TEST(FindFiles, PutsTheSubfoldersFilesFirst) {
    TempFolder Folder;
    Folder.Write("a.log", "");
    Folder.Write("z\\z.log", "");
    std::vector<std::string> Found;
    FindFiles(Found, Folder.Path(), "*", false);
    EXPECT_THAT(Found, ElementsAre(Folder.Path("z\\z.log"), Folder.Path("a.log")));
}

TEST(FindFiles, LeavesSubfoldersOutWhenAsked) {
    TempFolder Folder;
    Folder.Write("zero.log", "");
    Folder.Write("a\\one.log", "");
    std::vector<std::string> Found;
    EXPECT_TRUE(FindFiles(Found, Folder.Path(), "*.log", true));
    EXPECT_THAT(Found, ElementsAre(Folder.Path("zero.log")));
}

TEST(FindFiles, TakesNoFolderForAFile) {
    TempFolder Folder;
    Folder.MakeFolder("folder.log");
    std::vector<std::string> Found;
    EXPECT_TRUE(FindFiles(Found, Folder.Path(), "*.log", true));
    EXPECT_THAT(Found, IsEmpty());
}

TEST(FindFiles, AddsNothingWhenNothingMatchesAndIsContent) {
    TempFolder Folder;
    Folder.Write("a.txt", "");
    std::vector<std::string> Found = {"before"};
    EXPECT_TRUE(FindFiles(Found, Folder.Path(), "*.log", false));
    EXPECT_THAT(Found, ElementsAre("before"));
}

TEST(FindFiles, FailsForAFolderThatIsNotThere) {
    TempFolder Folder;
    std::vector<std::string> Found;
    EXPECT_FALSE(FindFiles(Found, Folder.Path("missing"), "*", false));
    EXPECT_THAT(Found, IsEmpty());
}

TEST(VisitFiles, HandsOutWhatTheSearchKnowsOfTheFile) {
    TempFolder Folder;
    Folder.Write("five.txt", "12345");
    std::vector<unsigned long> Sizes;
    VisitFiles(Folder.Path(), "*", true,
               [&](const std::string&, const WIN32_FIND_DATAA& Data) { Sizes.push_back(Data.nFileSizeLow); });
    EXPECT_THAT(Sizes, ElementsAre(5u));
}

TEST(ListSubFolders, NeverReturnsTheDots) {
    TempFolder Folder;
    Folder.MakeFolder("one");
    Folder.MakeFolder("two");
    Folder.Write("file", "");
    std::vector<std::string> Found;
    EXPECT_TRUE(ListSubFolders(Found, Folder.Path()));
    EXPECT_THAT(Found, UnorderedElementsAre(Folder.Path("one"), Folder.Path("two")));
}

TEST(ListSubFolders, KeepsToThePattern) {
    TempFolder Folder;
    Folder.MakeFolder("alpha");
    Folder.MakeFolder("beta");
    std::vector<std::string> Found;
    EXPECT_TRUE(ListSubFolders(Found, Folder.Path(), "a*"));
    EXPECT_THAT(Found, ElementsAre(Folder.Path("alpha")));
}

TEST(ListSubFolders, FailsWhenTheSearchCannotStart) {
    TempFolder Folder;
    std::vector<std::string> Found;
    EXPECT_FALSE(ListSubFolders(Found, Folder.Path("missing")));
    EXPECT_FALSE(ListSubFolders(Found, Folder.Path("missing"), "*"));
}

TEST(FileExists, TakesAFileAndNoFolder) {
    TempFolder Folder;
    const std::string strFile = Folder.Write("file", "");
    EXPECT_TRUE(FileExists(strFile));
    EXPECT_FALSE(FileExists(Folder.Path()));
    EXPECT_FALSE(FileExists(Folder.Path("missing")));
    EXPECT_FALSE(FileExists(""));
}

TEST(IsFolder, TakesAFolderAndNoFile) {
    TempFolder Folder;
    const std::string strFile = Folder.Write("file", "");
    EXPECT_TRUE(IsFolder(Folder.Path()));
    EXPECT_FALSE(IsFolder(strFile));
    EXPECT_FALSE(IsFolder(Folder.Path("missing")));
}

}  // namespace
}  // namespace crashvane
