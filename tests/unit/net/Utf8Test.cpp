#include "net/Utf8.h"

#include <gtest/gtest.h>

namespace crashvane {
namespace {

using namespace std::string_literals;

TEST(Utf8, ConvertsBothWays) {
    EXPECT_EQ(ToUtf8(L"caf\u00E9 \u5D29\u6E83"), "caf\xC3\xA9 \xE5\xB4\xA9\xE6\xBA\x83");
    EXPECT_EQ(FromUtf8("caf\xC3\xA9 \xE5\xB4\xA9\xE6\xBA\x83"), L"caf\u00E9 \u5D29\u6E83");
    EXPECT_EQ(ToUtf8(L"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
}

TEST(Utf8, KeepsEmptyEmpty) {
    EXPECT_EQ(ToUtf8(L""), "");
    EXPECT_EQ(FromUtf8(""), L"");
}

TEST(Utf8, SendsZerosAndStopsAtThemWhenReading) {
    EXPECT_EQ(ToUtf8(L"a\0b"s), "a\0b"s);
    EXPECT_EQ(FromUtf8("a\0b"s), L"a");
    EXPECT_EQ(FromUtf8("\0b"s), L"");
}

TEST(Utf8, ReplacesWhatIsNoText) {
    EXPECT_EQ(ToUtf8(L"a\xD83D"), "a\xEF\xBF\xBD");
    EXPECT_EQ(FromUtf8("3\xFF"), L"3\uFFFD");
}

TEST(Utf8, KeepsAByteOrderMark) {
    EXPECT_EQ(FromUtf8("\xEF\xBB\xBF"
                       "3"),
              L"\uFEFF"
              L"3");
}

}  // namespace
}  // namespace crashvane
