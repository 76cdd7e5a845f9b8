#include "strip_chart/paper.h"

#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>

namespace tqx::strip {
namespace {

constexpr QSize Size(300, 120);
constexpr Time Tick = Second / 50;

/// A paper with everything that it is drawn from.
class StripPaperDrawing : public testing::Test {
protected:
    History history;
    Wall wall;
    Zone zone = [](Time) { return 0; };
    PaperSetup setup;
    Paper paper;

    void SetUp() override {
        wall.Note(0, 0);
        setup.Inks = DefaultInks();
        setup.Wall = &wall;
        setup.Zone = &zone;
        setup.TimeStep = 10 * Second;
        setup.ValueStep = 20;
        setup.View.ColumnCount(Size.width());
        setup.View.Values({0, 100}, {0, 100});
        paper.Resize(Size);
    }

    void Feed(int ticks) {
        for (int i = 0; i < ticks; ++i, now += Tick) {
            for (int variable = 0; variable < 17; ++variable) {
                const double turn = static_cast<double>(now) / static_cast<double>(Tick) * 0.01 *
                                    (1 + variable % 5);
                history.Add(variable, now, 50 + 45 * std::sin(turn + variable));
            }
        }
        setup.View.Newest(history.Newest());
    }

    /// What the same run shows when it is drawn at once.
    QImage DrawnAtOnce() {
        Paper anew;
        anew.Resize(Size);
        anew.Draw(history, setup);
        return Shown(anew);
    }

    static QImage Shown(const Paper& of) {
        QImage image(Size, QImage::Format_RGB32);
        QPainter painter(&image);
        of.CopyTo(painter, QPoint(0, 0), image.rect());
        return image;
    }

    Time now = 0;
};

TEST_F(StripPaperDrawing, ManySmallStepsShowWhatOneDrawingShows) {
    for (const double ratio : {1.0, 2.0, 1.5}) {
        for (const bool smooth : {true, false}) {
            setup.PixelRatio = ratio;
            setup.Antialiased = smooth;
            paper.Invalidate();
            for (const int ticks : {1, 3, 700, 3, 4, 3, 50, 1, 2900, 3, 3}) {
                Feed(ticks);
                paper.Draw(history, setup);
            }
            EXPECT_EQ(Shown(paper), DrawnAtOnce()) << ratio << ' ' << smooth;
        }
    }
}

TEST_F(StripPaperDrawing, PanningShowsWhatOneDrawingShows) {
    Feed(6000);
    paper.Draw(history, setup);
    for (const int columns : {-1, -7, -200, 20, 5, -1000, 1}) {
        setup.View.PanTime(columns);
        Feed(3);
        paper.Draw(history, setup);
        EXPECT_EQ(Shown(paper), DrawnAtOnce()) << columns;
    }
}

TEST_F(StripPaperDrawing, AFrameDrawsTheNewColumnsOnly) {
    Feed(4000);
    paper.Draw(history, setup);
    EXPECT_TRUE(paper.Draw(history, setup).Empty());
    now += 1; // within the newest column
    history.Add(0, now, 50);
    const Paper::Change change = paper.Draw(history, setup);
    EXPECT_EQ(change.End, Size.width());
    EXPECT_GE(change.Begin, Size.width() - 3);
}

TEST_F(StripPaperDrawing, AHiddenTraceAndValuesBeyondThePaperLeaveItBlank) {
    setup.ValueStep = 1000;
    setup.TimeStep = 1000 * Second;
    setup.View.Newest(120 * Second);
    const QImage blank = DrawnAtOnce();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {-12.0, 1e300, infinity, -infinity, -1e300, 112.0}) {
        now += 20 * Second;
        history.Add(2, now, value);
    }
    history.Add(5, now, 50);
    setup.Inks[5].Shown = false;
    EXPECT_EQ(DrawnAtOnce(), blank);
    setup.Inks[5].Shown = true;
    EXPECT_NE(DrawnAtOnce(), blank);
}

TEST(StripInks, OnlyTracesTooLightForThePaperAreCased) {
    const Inks inks = DefaultInks();
    for (int variable = 0; variable < VariableCount; ++variable) {
        EXPECT_EQ(inks[static_cast<std::size_t>(variable)].Cased, variable == 10) << variable;
    }
}

} // namespace
} // namespace tqx::strip
