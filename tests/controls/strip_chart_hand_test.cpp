#include <controls/strip_chart.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using namespace std::chrono_literals;
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
        chart.resize(800, 400);
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

    double Seconds() const { return std::chrono::duration<double>(chart.TimeOnView()).count(); }

    QByteArray FileText(const QString& name) const {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::chrono::nanoseconds now{0};
    StripChart chart;
    QString answer;
    QStringList suggestions;
    QStringList told;
    QTemporaryDir folder;
    const QPoint paper{300, 200};
};

TEST_F(StripChartHand, SpaceFreezesThePictureAndNoSampleIsLost) {
    Key(Qt::Key_Space);
    EXPECT_TRUE(chart.Frozen());
    EXPECT_THAT(chart.StateText().toStdString(), HasSubstr("Frozen at"));
    const QImage frozen = chart.Picture();
    Run(20s);
    const QRect body(60, 50, 500, 300);
    EXPECT_EQ(chart.Picture().copy(body), frozen.copy(body));
    Key(Qt::Key_Space);
    EXPECT_TRUE(chart.Following());
    EXPECT_NE(chart.Picture().copy(body), frozen.copy(body));
    answer = folder.filePath("all.csv");
    Key(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(FileText(answer).count('\n'), 1 + 1100);
}

TEST_F(StripChartHand, TheWheelZoomsTimeAndWithCtrlOrShiftValues) {
    Wheel(paper, 120);
    EXPECT_NEAR(Seconds(), 48, 0.01);
    EXPECT_FALSE(chart.Following());
    EXPECT_EQ(chart.HighOnView(), 50);
    for (const auto modifier : {Qt::ControlModifier, Qt::ShiftModifier}) {
        const double span = chart.HighOnView() - chart.LowOnView();
        Wheel(paper, 120, modifier);
        EXPECT_NEAR(chart.HighOnView() - chart.LowOnView(), span / 1.25, 1e-9);
    }
    EXPECT_NEAR(Seconds(), 48, 0.01);
    for (int i = 0; i < 40; ++i) {
        Wheel(paper, -120, Qt::ControlModifier);
    }
    EXPECT_EQ(chart.LowOnView(), -128);
    EXPECT_EQ(chart.HighOnView(), 125);
    EXPECT_EQ(chart.YLow(), 0) << "the program's range is its own";
    EXPECT_EQ(chart.YHigh(), 50);
}

TEST_F(StripChartHand, ADragPansAndThreeRoadsLeadBackToLive) {
    const auto drag = [this] {
        QTest::mousePress(&chart, Qt::LeftButton, {}, paper);
        QTest::mouseMove(&chart, paper + QPoint(50, 2));
        QTest::mouseMove(&chart, paper + QPoint(100, 20));
        QTest::mouseMove(&chart, paper + QPoint(100, 40));
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, paper + QPoint(100, 40));
        EXPECT_FALSE(chart.Following());
        EXPECT_GT(chart.LowOnView(), 0) << "pulling the paper down shows higher values";
        EXPECT_TRUE(chart.ReadoutText().isEmpty()) << "a drag is no click";
    };
    drag();
    Key(Qt::Key_Home);
    EXPECT_TRUE(chart.Following());
    EXPECT_EQ(chart.LowOnView(), 0);
    drag();
    QTest::mouseClick(&chart, Qt::LeftButton, {}, paper);
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, paper);
    EXPECT_TRUE(chart.Following());
    EXPECT_EQ(chart.HighOnView(), 50);
    EXPECT_TRUE(chart.ReadoutText().isEmpty()) << "a double click leaves no cursor behind";
    drag();
    auto* live = chart.findChild<QToolButton*>("LiveButton");
    QTest::mouseClick(live, Qt::LeftButton);
    EXPECT_TRUE(chart.Following());
    EXPECT_FALSE(live->isEnabled());
}

TEST_F(StripChartHand, ACursorReadsTheSampleBeforeItAndASecondTheDifference) {
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(200, 200));
    const QStringList one = chart.ReadoutText().split('\n');
    ASSERT_EQ(one.size(), 4);
    EXPECT_THAT(one[1].toStdString(), EndsWith("\t31"));
    const double before = one[2].section('\t', 1, 1).toDouble();
    QTest::mouseClick(&chart, Qt::LeftButton, Qt::ShiftModifier, QPoint(400, 200));
    const QStringList two = chart.ReadoutText().split('\n');
    const double after = two[2].section('\t', 2, 2).toDouble();
    const double difference = two[2].section('\t', 3, 3).toDouble();
    const double apart = two[0].section('\t', 3, 3).remove(" s").toDouble();
    EXPECT_EQ(after - before, difference);
    EXPECT_GT(difference, 10);
    EXPECT_NEAR(apart, difference, 1.0);
    EXPECT_THAT(two[3].toStdString(), EndsWith("\t0"));
    EXPECT_EQ(chart.StateText().contains(two[0]), true);
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), chart.ReadoutText());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(chart.ReadoutText().isEmpty());
}

TEST_F(StripChartHand, ACursorIsDraggedAndMovedByKeys) {
    const auto reading = [this] {
        return chart.ReadoutText().split('\n')[2].section('\t', 1, 1).toInt();
    };
    Key(Qt::Key_Space);
    Key(Qt::Key_1);
    const int middle = reading();
    for (int i = 0; i < 20; ++i) {
        Key(Qt::Key_Right, Qt::ShiftModifier);
    }
    const int right = reading();
    EXPECT_GT(right, middle + 10);
    for (int i = 0; i < 500; ++i) {
        Key(Qt::Key_Left, Qt::ShiftModifier);
    }
    EXPECT_EQ(reading(), 0) << "the first sample of the run; the view went with the cursor";
    EXPECT_GT(Seconds(), 59);
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
    EXPECT_THAT(chart.ReadoutText().split('\n')[1].toStdString(), EndsWith("\t-"));
    EXPECT_THAT(chart.LatestText().toStdString(), HasSubstr("External Temp 1 nothing"));
}

TEST_F(StripChartHand, TheLegendHidesShowsAndSinglesOut) {
    const QPoint first(chart.width() - 60, 54);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, first);
    EXPECT_FALSE(chart.TraceShown(0));
    EXPECT_THAT(chart.LatestText().toStdString(), StartsWith("External Temp 0"));
    QTest::mouseClick(&chart, Qt::LeftButton, {}, first);
    EXPECT_TRUE(chart.TraceShown(0));
    QTest::mouseClick(&chart, Qt::LeftButton, Qt::ControlModifier, first);
    EXPECT_TRUE(chart.TraceShown(0));
    EXPECT_FALSE(chart.TraceShown(1));
    Key(Qt::Key_A);
    EXPECT_TRUE(chart.TraceShown(1));
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_FALSE(chart.TraceShown(1));
    Key(Qt::Key_O);
    EXPECT_TRUE(chart.TraceShown(1));
    EXPECT_FALSE(chart.TraceShown(0));
    Key(Qt::Key_O);
    EXPECT_TRUE(chart.TraceShown(0));
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
    QTest::mousePress(&chart, Qt::LeftButton, {}, table);
    QMouseEvent move(QEvent::MouseMove, aside, chart.mapToGlobal(aside), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&chart, &move);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, aside);
    const QImage moved = chart.Picture();
    EXPECT_NE(before.copy(covered), bare.copy(covered));
    EXPECT_EQ(moved.copy(covered), bare.copy(covered)) << "what it covered is in sight";
    EXPECT_EQ(chart.ReadoutText(), readout) << "neither the cursor nor the view went along";
    QTest::mouseClick(&chart, Qt::LeftButton, {}, aside);
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, aside);
    EXPECT_EQ(chart.Picture(), before) << "a double click lets it find its place again";
    EXPECT_TRUE(chart.Frozen());
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
    Run(3600s);
    EXPECT_GT(Seconds(), 3689);
}

TEST_F(StripChartHand, EmptyingTheChartUndoesWhatTheHandDid) {
    Key(Qt::Key_Space);
    Key(Qt::Key_1);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(chart.width() - 60, 54));
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
    EXPECT_THAT(suggestions[0].toStdString(), StartsWith("Temperature "));
    EXPECT_THAT(suggestions[0].toStdString(), EndsWith(".png"));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(StripChartHand, TheSamplesOnViewOfTheTracesShownAreExported) {
    QTest::mouseClick(&chart, Qt::LeftButton, {}, QPoint(chart.width() - 60, 54));
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

TEST_F(StripChartHand, AScreenReaderHearsTitleValuesAndState) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&chart);
    EXPECT_EQ(face->role(), QAccessible::Chart);
    EXPECT_EQ(face->text(QAccessible::Name), "Strip chart: Temperature");
    EXPECT_EQ(face->text(QAccessible::Value),
              "Internal Temp 31, External Temp 0 89, External Temp 1 20");
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(face->text(QAccessible::Description).toStdString(), HasSubstr("Frozen"));
}

} // namespace
} // namespace tqx
