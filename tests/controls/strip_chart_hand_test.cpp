#include "strip_chart/history.h"

#include <controls/strip_chart.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace tqx {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// A chart of three temperatures with a minute and a half of samples on simulated time.
class StripChartHand : public testing::Test {
protected:
    void SetUp() override {
        chart.Clock(
            {[this] { return now; },
             [this] { return std::chrono::system_clock::time_point(1'700'000'000s + now); }});
        chart.Doors({[this](QWidget*, const QString&, const QString& suggested, const QString&) {
                         suggestions.append(suggested);
                         return answer;
                     },
                     [this](QWidget*, const QString&, const QString& text) { told.append(text); }});
        chart.YFloor(-128);
        chart.YCeiling(125);
        chart.YHigh(50);
        Name(0, "Temperature");
        Name(2, "Internal Temp");
        Name(3, "External Temp 0");
        Name(4, "External Temp 1");
        chart.resize(ChartWidth, 400);
        chart.show();
        chart.activateWindow();
        chart.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&chart));
        Run(90s);
    }

    void Name(int caption, const char* text) {
        chart.CaptionIndex(caption);
        chart.Caption(text);
    }

    /// Ticks of 100 ms; variable 1 reads the seconds gone.
    void Run(std::chrono::nanoseconds span) {
        for (const auto end = now + span; now < end; now += 100ms) {
            chart.AddStripPoint(0, 31);
            chart.AddStripPoint(1, std::floor(std::chrono::duration<double>(now).count()));
            chart.AddStripPoint(2, 20);
        }
        chart.DrawFrame();
    }

    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&chart, static_cast<Qt::Key>(key), modifiers);
    }

    void Wheel(const QPoint& at, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWheelEvent event(at, chart.mapToGlobal(at), QPoint(), QPoint(0, angle), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&chart, &event);
    }

    /// A cell of the table of readouts.
    QString Cell(int row, int column) const {
        return chart.ReadoutText().section('\n', row, row).section('\t', column, column);
    }

    double Seconds() const { return std::chrono::duration<double>(chart.TimeOnView()).count(); }

    /// The first two traces, + for one that is drawn.
    std::string TracesShown() const {
        return {chart.TraceShown(0) ? '+' : '-', chart.TraceShown(1) ? '+' : '-'};
    }

    QByteArray FileText(const QString& name) const {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static constexpr int ChartWidth = 800;
    std::chrono::nanoseconds now{0};
    StripChart chart;
    QString answer;
    QStringList suggestions;
    QStringList told;
    QTemporaryDir folder;
    const QPoint paper{300, 200};
    const QPoint firstOfLegend{ChartWidth - 60, 54};
};

TEST_F(StripChartHand, SpaceFreezesThePictureAndNoSampleIsLost) {
    const auto body = [this] { return chart.Picture().copy(60, 50, 500, 300); };
    Key(Qt::Key_Space);
    EXPECT_THAT(chart.StateText().toStdString(), HasSubstr("Frozen at"));
    const QImage frozen = body();
    Run(20s);
    EXPECT_EQ(body(), frozen);
    Key(Qt::Key_Space);
    EXPECT_TRUE(chart.Following());
    EXPECT_NE(body(), frozen);
    answer = folder.filePath("all.csv");
    Key(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(FileText(answer).count('\n'), 1 + 1100);
}

TEST_F(StripChartHand, TheWheelZoomsTimeAndWithCtrlOrShiftValues) {
    Wheel(paper, 120);
    EXPECT_NEAR(Seconds(), 48, 0.01);
    EXPECT_FALSE(chart.Following());
    for (const auto modifier : {Qt::ControlModifier, Qt::ShiftModifier}) {
        const double span = chart.HighOnView() - chart.LowOnView();
        Wheel(paper, 120, modifier);
        EXPECT_NEAR(chart.HighOnView() - chart.LowOnView(), span / 1.25, 1e-9);
    }
    EXPECT_NEAR(Seconds(), 48, 0.01);
    EXPECT_EQ(chart.YLow(), 0) << "the program's range is its own";
    EXPECT_EQ(chart.YHigh(), 50);
}

TEST_F(StripChartHand, ADragPansAndThreeRoadsLeadBackToLive) {
    auto* live = chart.findChild<QToolButton*>("LiveButton");
    const std::function<void()> roads[] = {
        [this] { Key(Qt::Key_Home); },
        [this] {
            QTest::mouseClick(&chart, Qt::LeftButton, {}, paper);
            QTest::mouseDClick(&chart, Qt::LeftButton, {}, paper);
        },
        [live] { QTest::mouseClick(live, Qt::LeftButton); },
    };
    for (const auto& backToLive : roads) {
        QTest::mousePress(&chart, Qt::LeftButton, {}, paper);
        QTest::mouseMove(&chart, paper + QPoint(50, 2));
        QTest::mouseMove(&chart, paper + QPoint(100, 20));
        QTest::mouseMove(&chart, paper + QPoint(100, 40));
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, paper + QPoint(100, 40));
        EXPECT_FALSE(chart.Following());
        EXPECT_GT(chart.LowOnView(), 0) << "pulling the paper down shows higher values";
        EXPECT_TRUE(chart.ReadoutText().isEmpty()) << "a drag is no click";
        backToLive();
        EXPECT_TRUE(chart.Following());
        EXPECT_FALSE(live->isEnabled());
        EXPECT_EQ(chart.LowOnView(), 0);
        EXPECT_TRUE(chart.ReadoutText().isEmpty()) << "a double click leaves no cursor behind";
    }
}

TEST_F(StripChartHand, AnEmptyChartNamesNoMoment) {
    chart.ClearStrip();
    Key(Qt::Key_Space);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(200, 200));
    EXPECT_EQ(chart.StateText(), "Frozen. New samples are kept.\n\t-");
}

TEST_F(StripChartHand, ACursorReadsTheSampleBeforeItAndASecondTheDifference) {
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(200, 200));
    EXPECT_EQ(Cell(1, 1), "31");
    const double before = Cell(2, 1).toDouble();
    QTest::mouseClick(&chart, Qt::LeftButton, Qt::ShiftModifier, QPoint(400, 200));
    const double difference = Cell(2, 3).toDouble();
    EXPECT_EQ(Cell(2, 2).toDouble() - before, difference);
    EXPECT_GT(difference, 10);
    EXPECT_NEAR(Cell(0, 3).remove(" s").toDouble(), difference, 1.0);
    EXPECT_EQ(Cell(3, 3), "0");
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), chart.ReadoutText());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(chart.ReadoutText().isEmpty());
}

TEST_F(StripChartHand, ACursorIsDraggedAndMovedByKeys) {
    const auto reading = [this] { return Cell(2, 1).toInt(); };
    Key(Qt::Key_Space);
    Key(Qt::Key_1);
    const int middle = reading();
    for (int i = 0; i < 20; ++i) {
        Key(Qt::Key_Right, Qt::ShiftModifier);
    }
    EXPECT_GT(reading(), middle + 10);
    for (int i = 0; i < 500; ++i) {
        Key(Qt::Key_Left, Qt::ShiftModifier);
    }
    EXPECT_EQ(reading(), 0) << "the first sample of the run; the view went with the cursor";
    Key(Qt::Key_Escape);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(300, 200));
    const int clicked = reading();
    QTest::mousePress(&chart, Qt::LeftButton, {}, QPoint(302, 100));
    QTest::mouseMove(&chart, QPoint(500, 100));
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, QPoint(500, 100));
    EXPECT_GT(reading(), clicked + 10);
}

TEST_F(StripChartHand, NothingIsReadInAGap) {
    now += 60s;
    Run(1s);
    chart.AddStripPoint(2, std::nan(""));
    chart.DrawFrame();
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(300, 200));
    EXPECT_EQ(Cell(1, 1), "-");
    EXPECT_THAT(chart.LatestText().toStdString(), HasSubstr("External Temp 1 nothing"));
}

TEST_F(StripChartHand, TheLegendHidesShowsAndSinglesOut) {
    const auto click = [this](Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(&chart, Qt::LeftButton, modifiers, firstOfLegend);
    };
    click(Qt::NoModifier);
    EXPECT_EQ(TracesShown(), "-+");
    EXPECT_THAT(chart.LatestText().toStdString(), StartsWith("External Temp 0"));
    click(Qt::NoModifier);
    EXPECT_EQ(TracesShown(), "++");
    click(Qt::ControlModifier);
    EXPECT_EQ(TracesShown(), "+-");
    Key(Qt::Key_A);
    EXPECT_EQ(TracesShown(), "++");
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(TracesShown(), "+-");
    Key(Qt::Key_O);
    EXPECT_EQ(TracesShown(), "-+");
    Key(Qt::Key_O);
    EXPECT_EQ(TracesShown(), "++");
}

TEST_F(StripChartHand, TheTableOfReadoutsIsDraggedOutOfTheWay) {
    const QPoint table(90, 90);
    const QPoint aside(90, 250);
    const QRect covered(table - QPoint(10, 10), QSize(60, 30));
    Key(Qt::Key_Space);
    const QImage bare = chart.Picture();
    QTest::mouseClick(&chart, Qt::LeftButton, {}, paper);
    const QString readout = chart.ReadoutText();
    const QImage before = chart.Picture();
    EXPECT_NE(before.copy(covered), bare.copy(covered));
    QTest::mousePress(&chart, Qt::LeftButton, {}, table);
    QMouseEvent move(QEvent::MouseMove, aside, chart.mapToGlobal(aside), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&chart, &move);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, aside);
    EXPECT_EQ(chart.Picture().copy(covered), bare.copy(covered)) << "what it covered is in sight";
    EXPECT_EQ(chart.ReadoutText(), readout) << "neither the cursor nor the view went along";
    QTest::mouseClick(&chart, Qt::LeftButton, {}, aside);
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, aside);
    EXPECT_EQ(chart.Picture(), before) << "a double click lets it find its place again";
}

TEST_F(StripChartHand, KeysZoomPanAndShowTheWholeRun) {
    Key(Qt::Key_Plus);
    EXPECT_NEAR(Seconds(), 48, 0.01);
    EXPECT_TRUE(chart.Following()) << "a zoom by keys keeps the newest sample on view";
    Key(Qt::Key_Minus);
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(chart.HighOnView() - chart.LowOnView(), 40, 1e-9);
    Key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_NEAR(chart.LowOnView(), 9, 1e-9);
    Key(Qt::Key_Left);
    EXPECT_FALSE(chart.Following());
    Key(Qt::Key_PageDown);
    EXPECT_TRUE(chart.Following());
    Key(Qt::Key_W);
    EXPECT_GT(Seconds(), 89);
}

TEST_F(StripChartHand, EmptyingTheChartUndoesWhatTheHandDid) {
    Key(Qt::Key_Space);
    Key(Qt::Key_1);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, firstOfLegend);
    chart.ClearStrip();
    EXPECT_TRUE(chart.Following());
    EXPECT_TRUE(chart.TraceShown(0));
    EXPECT_TRUE(chart.ReadoutText().isEmpty());
    EXPECT_TRUE(chart.LatestText().isEmpty());
    Run(1s);
    EXPECT_FALSE(chart.LatestText().isEmpty());
}

TEST_F(StripChartHand, ThePictureIsCopiedAndSaved) {
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->image().size(), chart.Picture().size());
    answer = folder.filePath("chart.png");
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(QImage(answer).size(), chart.Picture().size());
    EXPECT_THAT(suggestions[0].toStdString(), AllOf(StartsWith("Temperature "), EndsWith(".png")));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(StripChartHand, TheSamplesOnViewOfTheTracesShownAreExported) {
    QTest::mouseClick(&chart, Qt::LeftButton, {}, firstOfLegend);
    answer = folder.filePath("view.csv");
    Key(Qt::Key_E, Qt::ControlModifier);
    const QList<QByteArray> lines = FileText(answer).trimmed().split('\n');
    EXPECT_EQ(lines[0], "Time,Seconds,Kind,External Temp 0,External Temp 1");
    EXPECT_NEAR(static_cast<double>(lines.size()), 601, 2);
    EXPECT_TRUE(lines.last().endsWith(",89.900000,sample,89,20")) << lines.last().toStdString();
}

TEST_F(StripChartHand, AFileThatCannotBeWrittenIsToldAndACancelledDialogIsNot) {
    answer = folder.filePath("no such folder/view.csv");
    Key(Qt::Key_E, Qt::ControlModifier);
    Key(Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(told.size(), 2);
    EXPECT_THAT(told[0].toStdString(), HasSubstr("could not be saved"));
    answer.clear();
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(told.size(), 2);
}

TEST_F(StripChartHand, CaptionsAndColoursAreAddressedByTheirNumber) {
    std::set<std::uint32_t> colours;
    for (int variable = 0; variable < strip::VariableCount; ++variable) {
        chart.VariableIndex(variable);
        colours.insert(chart.VariableColor());
    }
    EXPECT_EQ(colours.size(), static_cast<std::size_t>(strip::VariableCount));
    EXPECT_EQ(*colours.rbegin() >> 24, 0U);
    chart.CaptionIndex(3);
    chart.CaptionColor(0x0000FF);
    for (const int other : {1, 2, 19}) {
        chart.CaptionIndex(other);
        EXPECT_NE(chart.CaptionColor(), 0x0000FFU);
        EXPECT_NE(chart.Caption(), "External Temp 0");
    }
    chart.CaptionIndex(3);
    EXPECT_EQ(chart.CaptionColor(), 0x0000FFU);
    EXPECT_EQ(chart.property("YFloor").toDouble(), -128);
    EXPECT_EQ(chart.property("YCeiling").toDouble(), 125);
}

TEST_F(StripChartHand, AScreenReaderHearsTitleValuesAndState) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&chart);
    EXPECT_EQ(face->role(), QAccessible::Chart);
    EXPECT_EQ(face->text(QAccessible::Name), "Strip chart: Temperature");
    EXPECT_EQ(face->text(QAccessible::Value),
              "Internal Temp 31, External Temp 0 89, External Temp 1 20");
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(face->text(QAccessible::Description).toStdString(), HasSubstr("Frozen"));

    chart.NameVariable(0, "Internal Temp");
    QTest::mouseClick(&chart, Qt::LeftButton, Qt::ControlModifier, firstOfLegend);
    EXPECT_THAT(face->text(QAccessible::Description).toStdString(),
                HasSubstr("\nHidden: External Temp 0, External Temp 1.\n"))
        << "a variable that can have no legend line is not among them";
}

} // namespace
} // namespace tqx
