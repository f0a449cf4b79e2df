#include "util/Handles.h"

#include <gtest/gtest.h>

#include <string>

namespace crashvane {
namespace {

std::string g_strClosed;

struct LetterTraits {
    using Type = char;
    static char Invalid() { return '\0'; }
    static void Close(char cLetter) {
        g_strClosed += cLetter;
        SetLastError(ERROR_INVALID_HANDLE);
    }
};
using Letter = Owner<LetterTraits>;

class OwnerTest : public testing::Test {
  protected:
    OwnerTest() { g_strClosed.clear(); }
};

TEST_F(OwnerTest, ClosesInReverseOrder) {
    {
        const Letter One('1');
        const Letter Two('2');
    }
    EXPECT_EQ(g_strClosed, "21");
}

TEST_F(OwnerTest, KeepsTheLastErrorWhenItCloses) {
    SetLastError(ERROR_DISK_FULL);
    { const Letter One('1'); }
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
}

TEST_F(OwnerTest, NeverClosesTheInvalidValue) {
    { const Letter None; }
    EXPECT_EQ(g_strClosed, "");
}

TEST_F(OwnerTest, ClosesOnceAfterAMove) {
    {
        Letter One('1');
        Letter Other(std::move(One));
        EXPECT_FALSE(One);
        EXPECT_EQ(Other.Get(), '1');
    }
    EXPECT_EQ(g_strClosed, "1");
}

TEST_F(OwnerTest, ClosesTheOldOneWhenItTakesAnother) {
    Letter One('1');
    One = Letter('2');
    EXPECT_EQ(g_strClosed, "1");
}

TEST_F(OwnerTest, GivesAwayUnclosed) {
    {
        Letter One('1');
        EXPECT_EQ(One.Release(), '1');
    }
    EXPECT_EQ(g_strClosed, "");
}

TEST(Undo, HappensUnlessDisarmed) {
    int nDone = 0;
    {
        const Undo Armed([&] { ++nDone; });
        Undo Disarmed([&] { nDone += 10; });
        Disarmed.Disarm();
    }
    EXPECT_EQ(nDone, 1);
}

}  // namespace
}  // namespace crashvane
