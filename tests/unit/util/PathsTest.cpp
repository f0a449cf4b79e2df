#include "util/Paths.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace crashvane {
namespace {

using test::CurrentFolderIs;
using test::TempFolder;

TEST(CombinePath, AddsTheSeparatorWhereNeeded) {
    EXPECT_EQ(CombinePath("C:\\a", "b.txt"), "C:\\a\\b.txt");
    EXPECT_EQ(CombinePath("C:\\a\\", "b.txt"), "C:\\a\\b.txt");
}

TEST(CombinePath, ResolvesDots) {
    EXPECT_EQ(CombinePath("C:\\game\\bin64\\", "..\\version.cfg"), "C:\\game\\version.cfg");
    EXPECT_EQ(CombinePath("C:\\game", ".\\x"), "C:\\game\\x");
}

TEST(CombinePath, StaysAtTheDrivesRoot) {
    EXPECT_EQ(CombinePath("C:\\", "..\\version.cfg"), "C:\\version.cfg");
}

TEST(CombinePath, IsEmptyForAPathThatIsTooLong) {
    EXPECT_EQ(CombinePath("C:\\", std::string(300, 'a')), "");
}

TEST(FileNameOf, IsThePartBehindTheLastSeparator) {
    EXPECT_EQ(FileNameOf("C:\\a\\b.txt"), "b.txt");
    EXPECT_EQ(FileNameOf("C:/a/b.txt"), "b.txt");
    EXPECT_EQ(FileNameOf("b.txt"), "b.txt");
    EXPECT_EQ(FileNameOf(""), "");
}

TEST(FolderOf, KeepsTheTrailingSeparator) {
    EXPECT_EQ(FolderOf("C:\\a\\b.txt"), "C:\\a\\");
    EXPECT_EQ(FolderOf("C:\\b.txt"), "C:\\");
    EXPECT_EQ(FolderOf("b.txt"), "");
    EXPECT_EQ(FolderOf(""), "");
}

TEST(FullPath, StartsFromTheCurrentFolder) {
    TempFolder Folder;
    const CurrentFolderIs There(Folder.Path());
    EXPECT_EQ(FullPath("sub\\..\\x.cfg"), Folder.Path("x.cfg"));
    EXPECT_EQ(FullPath("C:\\x\\y"), "C:\\x\\y");
}

TEST(FullPath, IsEmptyForAnEmptyOrOverlongPath) {
    EXPECT_EQ(FullPath(""), "");
    EXPECT_EQ(FullPath("C:\\" + std::string(300, 'a')), "");
}

TEST(CurrentFolder, IsTheOneOfTheMoment) {
    TempFolder Folder;
    const CurrentFolderIs There(Folder.Path());
    EXPECT_EQ(CurrentFolder(), Folder.Path());
}

TEST(ModuleFile, NamesThisProgram) {
    EXPECT_EQ(FileNameOf(ModuleFile()), "util_tests.exe");
    EXPECT_EQ(ModuleFile(), ModuleFolder() + "util_tests.exe");
}

TEST(ModuleFolder, StaysWhenTheCurrentFolderChanges) {
    const std::string strBefore = ModuleFolder();
    TempFolder Folder;
    const CurrentFolderIs There(Folder.Path());
    EXPECT_EQ(ModuleFolder(), strBefore);
    EXPECT_EQ(&ModuleFolder(), &ModuleFolder());
}

}  // namespace
}  // namespace crashvane
