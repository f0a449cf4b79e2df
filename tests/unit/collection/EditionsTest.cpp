#include "collection/Editions.h"

#include <gtest/gtest.h>

namespace crashvane {
namespace {

constexpr Edition Editions[] = {{"game.exe", "first"}, {"game.exe", "second"}, {"tool.exe", "tool"}};

TEST(EditionOf, TakesTheFirstRowOfAnExecutable) {
    EXPECT_EQ(EditionOf("game.exe", Editions, "other"), "first");
    EXPECT_EQ(EditionOf("tool.exe", Editions, "other"), "tool");
}

TEST(EditionOf, LooksPastLetterCase) {
    EXPECT_EQ(EditionOf("TooL.ExE", Editions, "other"), "tool");
}

TEST(EditionOf, ComparesWholeNames) {
    for (const char* pszName : {"", "game", "game.exe ", " game.exe", "game.exe.exe", "ame.exe", "C:\\game.exe"}) {
        EXPECT_EQ(EditionOf(pszName, Editions, "other"), "other") << pszName;
    }
}

TEST(EditionOf, LeavesBytesThatAreNoLettersAlone) {
    static constexpr Edition Chinese[] = {{"\xD3\xCE\xCF\xB7.exe", "game"}};
    EXPECT_EQ(EditionOf("\xD3\xCE\xCF\xB7.EXE", Chinese, "other"), "game");
    EXPECT_EQ(EditionOf("\xF3\xCE\xCF\xB7.exe", Chinese, "other"), "other");
}

}  // namespace
}  // namespace crashvane
