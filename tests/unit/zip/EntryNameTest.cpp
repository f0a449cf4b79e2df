#include "zip/EntryName.h"

#include <gmock/gmock.h>

namespace crashvane {
namespace {

constexpr unsigned Western = 1252;
constexpr unsigned Chinese = 936;

TEST(EntryName, TurnsEveryBackslashIntoASlash) {
    EXPECT_EQ(EntryName("logs\\a.txt", Western), "logs/a.txt");
    EXPECT_EQ(EntryName("\\a\\\\b\\", Western), "/a//b/");
}

TEST(EntryName, LeavesOtherNamesAsTheyAre) {
    EXPECT_EQ(EntryName("CrashReport.xml", Western), "CrashReport.xml");
    EXPECT_EQ(EntryName("", Western), "");
}

TEST(EntryName, EndsAtAZero) {
    EXPECT_EQ(EntryName(std::string("a\0b", 3), Western), "a");
}

TEST(EntryName, KeepsTheBackslashByteThatIsHalfOfACharacter) {
    EXPECT_EQ(EntryName("\xD5\x5C.dmp", Chinese), "\xD5\x5C.dmp");
    EXPECT_EQ(EntryName("\xD5\x5C\\\xD5\x5C", Chinese), "\xD5\x5C/\xD5\x5C");
    EXPECT_EQ(EntryName("\xD5\x5C.dmp", Western), "\xD5/.dmp");
}

TEST(EntryName, EndsInHalfACharacterWithoutReadingOn) {
    EXPECT_EQ(EntryName("a\\\xD5", Chinese), "a/\xD5");
}

TEST(MethodFor, StoresArchives) {
    for (const char* pszName : {"a.Z", "a.zip", "a.zoo", "a.arc", "a.lzh", "a.arj", "a.gz", "a.tgz"}) {
        EXPECT_EQ(MethodFor(pszName), ZipStored) << pszName;
    }
}

TEST(MethodFor, IgnoresCase) {
    EXPECT_EQ(MethodFor("old.ZIP"), ZipStored);
    EXPECT_EQ(MethodFor("old.tGz"), ZipStored);
    EXPECT_EQ(MethodFor("old.z"), ZipStored);
}

TEST(MethodFor, DeflatesEverythingElse) {
    for (const char* pszName : {"dump.dmp", "CrashReport.xml", "zip", "a.zipx", "a.7z", "a.zi", "a.", "", "a.gz.txt"}) {
        EXPECT_EQ(MethodFor(pszName), ZipDeflated) << pszName;
    }
}

TEST(MethodFor, LooksAtTheLastDotWhereverItStands) {
    EXPECT_EQ(MethodFor("a.b.tgz"), ZipStored);
    EXPECT_EQ(MethodFor(".gz"), ZipStored);
    EXPECT_EQ(MethodFor("logs.zip/readme"), ZipDeflated);  // ".zip/readme" is no suffix
    EXPECT_EQ(MethodFor("logs.d/old.zip"), ZipStored);
}

}  // namespace
}  // namespace crashvane
