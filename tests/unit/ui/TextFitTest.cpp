#include "ui/TextFit.h"

#include <gtest/gtest.h>

#include <ostream>

inline bool operator==(const RECT& One, const RECT& Other) {
    return EqualRect(&One, &Other) != FALSE;
}

inline void PrintTo(const RECT& One, std::ostream* pStream) {
    *pStream << One.left << "," << One.top << " - " << One.right << "," << One.bottom;
}

namespace crashvane::test {
namespace {

constexpr RECT Bounds = {0, 0, 300, 200};
constexpr RECT Place = {10, 100, 110, 110};

TEST(TextFitTest, GrowsUpFirst) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 30, 0, Bounds, {}), (RECT{10, 80, 110, 110}));
}

TEST(TextFitTest, GrowsDownWhereItFindsNoSpaceAbove) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 30, 0, Bounds, {{10, 80, 110, 97}}), (RECT{10, 97, 110, 127}));
}

TEST(TextFitTest, KeepsItsDistanceWhereThereIsSpaceForIt) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 30, 4, Bounds, {{10, 80, 110, 90}}), (RECT{10, 94, 110, 124}));
    EXPECT_EQ(GrowIntoFreeSpace(Place, 30, 4, Bounds, {{10, 70, 110, 78}, {10, 112, 110, 120}}),
              (RECT{10, 80, 110, 110}));
}

TEST(TextFitTest, HalvesTheSpaceThatIsTooSmallForTheDistance) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 20, 4, Bounds, {{10, 80, 110, 94}, {10, 118, 110, 120}}),
              (RECT{10, 96, 110, 116}));
}

TEST(TextFitTest, TakesNoMoreThanThereIs) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 30, 4, Bounds, {{10, 80, 110, 97}, {10, 114, 110, 120}}),
              (RECT{10, 97, 110, 114}));
}

TEST(TextFitTest, PassesByWhatLiesAside) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 30, 4, Bounds, {{110, 0, 200, 200}, {0, 0, 10, 200}}), (RECT{10, 80, 110, 110}));
}

TEST(TextFitTest, StaysInsideTheBounds) {
    EXPECT_EQ(GrowIntoFreeSpace({10, 2, 110, 12}, 30, 0, Bounds, {}), (RECT{10, 0, 110, 30}));
    EXPECT_EQ(GrowIntoFreeSpace({10, 190, 110, 200}, 30, 0, Bounds, {}), (RECT{10, 170, 110, 200}));
}

TEST(TextFitTest, NeverShrinks) {
    EXPECT_EQ(GrowIntoFreeSpace(Place, 5, 0, Bounds, {}), Place);
}

}  // namespace
}  // namespace crashvane::test
