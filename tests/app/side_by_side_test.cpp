#include <app/console_program.h>

#include <gtest/gtest.h>

namespace tqx {
namespace {

constexpr QSize Wizard(640, 440);
constexpr QSize Board(462, 647);

TEST(SideBySide, StandsAtTheEdgesOfASmallRoomAndOnlyThenOverlaps) {
    constexpr QRect room(0, 0, 1024, 740);
    const SideBySide places = PlaceSideBySide(room, Wizard, Board);
    EXPECT_EQ(places.Left.x(), 0);
    EXPECT_TRUE(room.contains(QRect(places.Right, Board)));
    EXPECT_GT(places.Right.x(), 1024 - 480);
}

} // namespace
} // namespace tqx
