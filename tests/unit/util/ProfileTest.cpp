#include "util/Profile.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace crashvane {
namespace {

using test::TempFolder;

TEST(ReadProfileText, ReadsAKeyOfItsSection) {
    TempFolder Folder;
    const std::string strFile = Folder.Write("a.ini", "[Other]\r\nkey=no\r\n[Main]\r\nKey = yes \r\n");
    EXPECT_EQ(ReadProfileText(strFile, "Main", "key"), "yes");
}

TEST(ReadProfileText, IsTheDefaultForWhatIsMissing) {
    TempFolder Folder;
    const std::string strFile = Folder.Write("a.ini", "[Main]\r\nempty=\r\n");
    EXPECT_EQ(ReadProfileText(strFile, "Main", "none", "default"), "default");
    EXPECT_EQ(ReadProfileText(strFile, "None", "key"), "");
    EXPECT_EQ(ReadProfileText(Folder.Path("none.ini"), "Main", "key", "default"), "default");
    EXPECT_EQ(ReadProfileText(strFile, "Main", "empty", "default"), "");
}

TEST(ReadProfileText, CutsAt1023Bytes) {
    TempFolder Folder;
    const std::string strFile = Folder.Write(
        "a.ini", "[Main]\r\nfits=" + std::string(1023, 'a') + "\r\nlong=" + std::string(1500, 'b') + "\r\n");
    EXPECT_EQ(ReadProfileText(strFile, "Main", "fits"), std::string(1023, 'a'));
    EXPECT_EQ(ReadProfileText(strFile, "Main", "long"), std::string(1023, 'b'));
}

TEST(ReadProfileNumber, ReadsLeadingDigits) {
    TempFolder Folder;
    const std::string strFile = Folder.Write("a.ini", "[Main]\r\none=1\r\nminus=-3\r\nword=yes\r\n");
    EXPECT_EQ(ReadProfileNumber(strFile, "Main", "one", 7), 1);
    EXPECT_EQ(ReadProfileNumber(strFile, "Main", "minus", 7), -3);
    EXPECT_EQ(ReadProfileNumber(strFile, "Main", "word", 7), 0);
    EXPECT_EQ(ReadProfileNumber(strFile, "Main", "none", 7), 7);
}

}  // namespace
}  // namespace crashvane
