#include <app/console_program.h>

#include <gtest/gtest.h>

namespace tqx {
namespace {

constexpr QSize Wizard(640, 440);
constexpr QSize Board(462, 647);

TEST(SideBySide, StandsInTheMiddleOfARoomThatIsWideEnough) {
    constexpr QRect room(100, 50, 1920, 1040);
    const SideBySide places = PlaceSideBySide(room, Wizard, Board);
    EXPECT_GE(places.Right.x(), places.Left.x() + Wizard.width());
    EXPECT_EQ(places.Left.y(), places.Right.y());
    const int before = places.Left.x() - room.left();
    const int behind = room.right() - (places.Right.x() + Board.width());
    EXPECT_NEAR(before, behind, 16);
    EXPECT_TRUE(room.contains(QRect(places.Right, Board)));
}

TEST(SideBySide, StandsAtTheEdgesOfASmallRoomAndOnlyThenOverlaps) {
    constexpr QRect room(0, 0, 1024, 740);
    const SideBySide places = PlaceSideBySide(room, Wizard, Board);
    EXPECT_EQ(places.Left.x(), 0);
    EXPECT_TRUE(room.contains(QRect(places.Right, Board)));
    EXPECT_GT(places.Right.x(), 1024 - 480);
}

} // namespace
} // namespace tqx
