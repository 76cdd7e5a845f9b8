#include "strip_chart/paper.h"

#include <controls/look.h>

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
        setup.PixelRatio = ratio;
        paper.Invalidate();
        for (const int ticks : {1, 3, 700, 3, 4, 3, 50, 1, 2900, 3, 3}) {
            Feed(ticks);
            paper.Draw(history, setup);
        }
        EXPECT_EQ(Shown(paper), DrawnAtOnce()) << ratio;
    }
}

TEST_F(StripPaperDrawing, GridAndTracesLieWhereTheirValuesAre) {
    for (int i = 0; i <= 60; ++i) {
        history.Add(8, i * Second, i < 30 ? 80 : 30); // red
        history.Add(5, i * Second, 60);
    }
    setup.Inks[5].Shown = false;
    setup.View.Newest(history.Newest());
    paper.Draw(history, setup);
    constexpr int Left = 7;
    constexpr int Top = 5;
    QImage screen(Size + QSize(2 * Left, 2 * Top), QImage::Format_RGB32);
    screen.fill(Qt::green);
    QPainter painter(&screen);
    paper.CopyTo(painter, {Left, Top}, screen.rect());
    const auto at = [&](double seconds, double value) {
        const auto column =
            static_cast<int>(setup.View.Columns().Of(static_cast<Time>(seconds * 1e9))) -
            static_cast<int>(setup.View.Columns().First);
        return screen.pixel(
            Left + column,
            Top + static_cast<int>(std::lround(RowOf(value, setup.View.Values(), Size.height()))));
    };
    EXPECT_EQ(screen.pixel(Left - 1, 50), QColor(Qt::green).rgb());
    EXPECT_EQ(screen.pixel(Left + Size.width(), 50), QColor(Qt::green).rgb());
    const auto red = [](QRgb pixel) { return qRed(pixel) > 240 && qGreen(pixel) < 64; };
    EXPECT_TRUE(red(at(10.5, 80)));
    EXPECT_TRUE(red(at(45.5, 30)));
    EXPECT_EQ(at(45.5, 80), look::PaperGrid) << "a line of values";
    EXPECT_EQ(at(20, 50), look::PaperGrid) << "a line of time";
    EXPECT_EQ(at(21, 50), look::Paper);
    EXPECT_EQ(at(45.5, 65), look::Paper);
    EXPECT_EQ(at(45.5, 60), look::PaperGrid) << "a hidden trace is not drawn";
}

TEST(StripInks, OnlyTracesTooLightForThePaperAreCased) {
    const Inks inks = DefaultInks();
    for (int variable = 0; variable < VariableCount; ++variable) {
        EXPECT_EQ(inks[static_cast<std::size_t>(variable)].Cased, variable == 10) << variable;
    }
}

} // namespace
} // namespace tqx::strip
