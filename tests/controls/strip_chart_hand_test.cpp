#include "support/answered_dialogs.h"

#include <controls/strip_chart.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QHelpEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

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
        chart.Dialogs(dialogs);
        chart.Unit("C");
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

    /// What the clock of the place shows at a moment of the run.
    static QString Clock(double seconds) {
        return QDateTime::fromMSecsSinceEpoch(qint64{1'700'000'000'000} + qint64(seconds * 1000))
            .toString("HH mm ss");
    }

    static constexpr int ChartWidth = 800;
    std::chrono::nanoseconds now{0};
    test::AnsweredDialogs dialogs;
    StripChart chart;
    QTemporaryDir folder;
    const QPoint paper{300, 200};
    const QPoint firstOfLegend{ChartWidth - 60, 54};
};

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

TEST_F(StripChartHand, ASampleIsOnTheScreenByItself) {
    const QImage before = chart.grab().toImage();
    now += 5s;
    chart.AddStripPoint(1, 40);
    QTest::qWait(50);
    EXPECT_NE(chart.grab().toImage(), before);
}

TEST_F(StripChartHand, WhatAPictureShowsFirstIsPaintedOnTheScreenToo) {
    struct Painted : QObject {
        QRegion Region;

        bool eventFilter(QObject* /*of*/, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                Region += static_cast<QPaintEvent*>(event)->region();
            }
            return false;
        }
    } painted;

    QTest::qWait(50);
    now -= 100ms; // with the last sample, so that the paper does not move
    chart.AddStripPoint(2, 60);
    chart.Picture(); // has the arrow of a trace above the paper
    chart.installEventFilter(&painted);
    QTest::qWait(50);
    EXPECT_FALSE(painted.Region.isEmpty());
}

TEST_F(StripChartHand, KeysSetTheirOwnCursorsAndFitTheValues) {
    const auto cursors = [this] { return chart.ReadoutText().section('\n', 0, 0); };
    Key(Qt::Key_2);
    const QString second = cursors();
    Key(Qt::Key_1);
    EXPECT_EQ(cursors().section('\t', 0, 0), "C");
    EXPECT_EQ(cursors().section('\t', 2, 2), second.section('\t', 1, 1));
    EXPECT_LT(cursors().section('\t', 1, 1), cursors().section('\t', 2, 2));
    Key(Qt::Key_F);
    EXPECT_NEAR(chart.LowOnView(), 20 - 0.05 * 69, 0.5);
    EXPECT_NEAR(chart.HighOnView(), 89 + 0.05 * 69, 0.5);
}

TEST_F(StripChartHand, TheGridIsThereFromTheFirstSampleOn) {
    chart.ClearStrip();
    chart.grab();
    now += 1s;
    chart.AddStripPoint(1, 40);
    chart.DrawFrame();
    const QImage first = chart.Picture();
    chart.Unit("V"); // lays the chart out anew
    chart.Unit("C");
    Key(Qt::Key_Plus);
    Key(Qt::Key_Minus); // and has its paper drawn anew
    EXPECT_EQ(chart.Picture(), first);
}

TEST_F(StripChartHand, TheStandstillSaysSinceWhen) {
    Key(Qt::Key_Space);
    EXPECT_EQ(chart.StateText(), "Frozen at " + Clock(89.9) + ". New samples are kept.");
    Key(Qt::Key_Left);
    Run(3s);
    EXPECT_EQ(chart.StateText(), "Frozen at " + Clock(89.9) + ". New samples are kept.");
    chart.Stopped(true);
    EXPECT_EQ(chart.StateText(), "Frozen at " + Clock(89.9) + ". Stopped at " + Clock(92.9) + ".");
    Key(Qt::Key_Home);
    EXPECT_EQ(chart.StateText(), "Stopped at " + Clock(92.9) + ".");
    chart.ClearStrip();
    EXPECT_EQ(chart.StateText(), "Stopped.") << "no moment has a name yet";
    chart.Stopped(false);
    EXPECT_EQ(chart.StateText(), "");
}

TEST_F(StripChartHand, ATraceIsNamedUnderThePointer) {
    chart.NameVariable(0, "Internal Temp");
    QStringList names;
    for (int y = 50; y < 360; ++y) {
        const QPoint at(300, y);
        QHelpEvent event(QEvent::ToolTip, at, chart.mapToGlobal(at));
        QApplication::sendEvent(&chart, &event);
        if (event.isAccepted() && !names.contains(QToolTip::text())) {
            names << QToolTip::text();
        }
    }
    EXPECT_EQ(names, QStringList({"Internal Temp", "External Temp 1"})) << "with a line or without";
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
    Key(Qt::Key_Return);
    EXPECT_EQ(TracesShown(), "-+");
    Key(Qt::Key_Return);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(TracesShown(), "+-");
    Key(Qt::Key_O);
    EXPECT_EQ(TracesShown(), "-+");
    Key(Qt::Key_O);
    EXPECT_EQ(TracesShown(), "++");
}

TEST_F(StripChartHand, ThePictureIsCopiedAndSaved) {
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->image().size(), chart.Picture().size());
    dialogs.FileName = folder.filePath("chart.png");
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(QImage(dialogs.FileName).size(), chart.Picture().size());
    EXPECT_THAT(dialogs.Suggested.toStdString(),
                AllOf(StartsWith("Temperature "), EndsWith(".png")));
    const QString size = QString::number(QFile(dialogs.FileName).size());
    EXPECT_EQ(dialogs.Messages, QStringList("none|Save the picture|" + dialogs.FileName +
                                            " is saved: " + size + " bytes."));
}

TEST_F(StripChartHand, AFileThatCannotBeWrittenIsToldAndACancelledDialogIsNot) {
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(dialogs.Messages.isEmpty());
    const auto told = [this](const QString& name) {
        dialogs.FileName = folder.filePath(name);
        Key(Qt::Key_E, Qt::ControlModifier);
        return dialogs.Messages.takeLast().toStdString();
    };
    EXPECT_THAT(told("no such folder/view.csv"), HasSubstr("No such file or directory"));
    const QString pipe = folder.filePath("pipe");
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    EXPECT_THAT(told("pipe"), HasSubstr("no ordinary file"));
    EXPECT_TRUE(QFile::exists(pipe)) << "it is still there";

    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{10'000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THAT(told("view.csv"), HasSubstr("File too large")) << "the reason of a short write";
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(QFile::exists(dialogs.FileName));
}

} // namespace
} // namespace tqx
