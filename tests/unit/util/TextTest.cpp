#include "util/Text.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace crashvane {
namespace {

using namespace std::string_literals;

TEST(ToAnsi, IsEmptyForAnEmptyText) {
    EXPECT_EQ(ToAnsi(L""), "");
}

TEST(ToUtf16, IsEmptyForAnEmptyText) {
    EXPECT_EQ(ToUtf16(""), L"");
}

TEST(ToAnsi, ConvertsTheWholeTextInTheCodePage) {
    if (GetACP() == 936) {
        EXPECT_EQ(ToAnsi(L"a\u9519\0b"s), "a\xB4\xED\0b"s);
    } else {
        ASSERT_EQ(GetACP(), 1252u);
        EXPECT_EQ(ToAnsi(L"a\u00E9\0b"s), "a\xE9\0b"s);
    }
}

TEST(ToAnsi, ReplacesWhatTheCodePageLacks) {
    EXPECT_EQ(ToAnsi(L"x\u0E01y"), "x?y");
}

TEST(ToUtf16, ConvertsTheWholeTextFromTheCodePage) {
    if (GetACP() == 936) {
        EXPECT_EQ(ToUtf16("a\xB4\xED\0b"s), L"a\u9519\0b"s);
    } else {
        ASSERT_EQ(GetACP(), 1252u);
        EXPECT_EQ(ToUtf16("a\xE9\0b"s), L"a\u00E9\0b"s);
    }
}

TEST(LastErrorText, IsTheSystemsMessage) {
    char* pszMessage = nullptr;
    FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_FILE_NOT_FOUND, 0,
                   reinterpret_cast<char*>(&pszMessage), 0, nullptr);
    ASSERT_NE(pszMessage, nullptr);
    SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(LastErrorText(), pszMessage);
    EXPECT_NE(LastErrorText(), "");
    LocalFree(pszMessage);
}

TEST(LastErrorText, IsEmptyWhenThereIsNoMessage) {
    SetLastError(0x2FFFFFFF);
    EXPECT_EQ(LastErrorText(), "");
}

TEST(ResourceText, PrefersTheGivenLanguage) {
    const char* pszType = MAKEINTRESOURCEA(300);
    EXPECT_EQ(ResourceText(pszType, "both", MAKELANGID(LANG_KOREAN, SUBLANG_KOREAN)), "korean");
    EXPECT_EQ(ResourceText(pszType, "both", MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)), "english");
}

TEST(ResourceText, FallsBackToAnyLanguage) {
    const WORD wGerman = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
    EXPECT_EQ(ResourceText(MAKEINTRESOURCEA(300), "only", wGerman), "only korean");
}

TEST(ResourceText, IsEmptyForAResourceThatIsNotThere) {
    EXPECT_EQ(ResourceText(MAKEINTRESOURCEA(300), "none", 0), "");
}

TEST(Format, SpeaksTheRuntimesDialect) {
    EXPECT_EQ(Format(64, "%I64u", 18446744073709551615ULL), "18446744073709551615");
    EXPECT_EQ(Format(64, "%p", reinterpret_cast<void*>(std::uintptr_t{0x7ff6a1b20000})), "00007FF6A1B20000");
}

TEST(Format, CutsWhatDoesNotFit) {
    EXPECT_EQ(Format(5, "%s", "1234"), "1234");
    EXPECT_EQ(Format(5, "%s", "12345"), "1234");
    EXPECT_EQ(Format(5, "%s", "123456"), "1234");
}

TEST(Format, PrintsWideTexts) {
    EXPECT_EQ(Format(24, L"%d.%d.%d.%d", 1, 0, 65535, 7), L"1.0.65535.7");
    EXPECT_EQ(Format(4, L"%d", 12345), L"123");
}

TEST(FormatText, HasNoLimit) {
    EXPECT_EQ(FormatText("%s!", std::string(5000, 'x').c_str()), std::string(5000, 'x') + "!");
    EXPECT_EQ(FormatText("%s", ""), "");
}

TEST(ToLower, ChangesAsciiLettersAlone) {
    EXPECT_EQ(ToLower("BRENNClientX64.EXE \xC0"), "brennclientx64.exe \xC0");
    EXPECT_EQ(ToUpper("brenn_9 \xE0"), "BRENN_9 \xE0");
}

}  // namespace
}  // namespace crashvane
