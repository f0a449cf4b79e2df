#include "zip/ExternalAttributes.h"

#include <gmock/gmock.h>

namespace crashvane {
namespace {

TEST(ExternalAttributes, OfAWritableFileWithTheArchiveAttribute) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_ARCHIVE, false), 0x81800020U);
}

TEST(ExternalAttributes, OfAReadOnlyFileLackTheWritableBit) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY, false), 0x81000021U);
}

TEST(ExternalAttributes, OfAnOrdinaryFile) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_NORMAL, false), 0x81800000U);
}

TEST(ExternalAttributes, OfAHiddenSystemFile) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_HIDDEN, false), 0x81800002U);
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_SYSTEM, false), 0x81800004U);
}

TEST(ExternalAttributes, OfAFolder) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_DIRECTORY, false), 0x41800010U);
}

TEST(ExternalAttributes, OfAnExecutable) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_ARCHIVE, true), 0x81C00020U);
}

TEST(ExternalAttributes, IgnoreWhatADosAttributeCannotSay) {
    EXPECT_EQ(ExternalAttributes(FILE_ATTRIBUTE_COMPRESSED | FILE_ATTRIBUTE_SPARSE_FILE, false), 0x81800000U);
}

TEST(HasNewHeader, WantsTheOddMark) {
    EXPECT_TRUE(HasNewHeader(1000, 0x54AD, 100));
    EXPECT_FALSE(HasNewHeader(1000, 0x5A4D, 100));  // what a real program begins with
    EXPECT_FALSE(HasNewHeader(1000, 0xAD54, 100));
}

TEST(HasNewHeader, WantsMoreThanFortyBytes) {
    EXPECT_FALSE(HasNewHeader(53, 0x54AD, 1));
    EXPECT_TRUE(HasNewHeader(54, 0x54AD, 1));
    EXPECT_FALSE(HasNewHeader(40, 0x54AD, 0xFFFFFFCC));  // 40 > 0, were the sum cut to 32 bits
}

TEST(HasNewHeader, WantsTheHeaderWithinTheFile) {
    EXPECT_FALSE(HasNewHeader(152, 0x54AD, 100));
    EXPECT_TRUE(HasNewHeader(153, 0x54AD, 100));
    EXPECT_FALSE(HasNewHeader(1000, 0x54AD, 0xFFFFFFFF));
}

TEST(IsExecutableMark, KnowsFourFormats) {
    EXPECT_TRUE(IsExecutableMark(0x5A4D));
    EXPECT_TRUE(IsExecutableMark(0x454C));
    EXPECT_TRUE(IsExecutableMark(0x454E));
    EXPECT_TRUE(IsExecutableMark(0x4550));
    EXPECT_FALSE(IsExecutableMark(0x4551));
    EXPECT_FALSE(IsExecutableMark(0x00905A4D));  // all 32 bits count
    EXPECT_FALSE(IsExecutableMark(0));
}

}  // namespace
}  // namespace crashvane
