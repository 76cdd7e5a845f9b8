#include <controls/linear_gauge.h>

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// A temperature gauge with limits at -40 and 60 in a window between two buttons, and a log of what
/// it tells: "moved 2 at 45".
class Gauge : public testing::Test {
protected:
    Gauge() {
        auto* column = new QVBoxLayout(&m_window);
        column->addWidget(&m_before);
        column->addWidget(&m_gauge);
        column->addWidget(&m_after);
        for (const int pointer : {0, 1, 2, 3}) {
            m_gauge.PointerIndex(pointer);
            m_gauge.PointerInner(pointer == 0 ? 0.91 : 0);
            m_gauge.PointerOuter(pointer == 1 ? 0.12 : 1);
            m_gauge.PointerWidth(0.06);
            m_gauge.PointerMouseControl(1);
            m_gauge.PointerFrom(-40);
            m_gauge.PointerTo(60);
            m_gauge.PointerValue(pointer == 2 ? -40 : 60);
        }
        m_gauge.ScaleMax(127);
        m_gauge.ScaleMin(-128);
        QObject::connect(&m_gauge, &LinearGauge::PointerMoved, &m_window, [this] {
            Note("moved");
            m_onMoved();
        });
        QObject::connect(&m_gauge, &LinearGauge::PointerSettled, &m_window,
                         [this] { Note("settled"); });
        m_window.resize(260, 560);
        m_window.show();
        m_window.activateWindow();
        QApplication::processEvents();
    }

    void Note(const char* what) {
        const int pointer = m_gauge.PointerIndex();
        const double at = pointer < 2 ? m_gauge.PointerFrom() : m_gauge.PointerValue();
        m_told.push_back(QString("%1 %2 at %3").arg(what).arg(pointer).arg(at).toStdString());
    }

    std::vector<std::string> Told() { return std::exchange(m_told, {}); }

    PointerPlace BandOf(int pointer) {
        return m_gauge.Pointers()[static_cast<std::size_t>(pointer)].Place;
    }

    double ValueOf(int pointer) { return BandOf(pointer).Value; }

    /// Where the mouse takes a pointer.
    QPoint On(int pointer) {
        const GaugePointer& it = m_gauge.Pointers()[static_cast<std::size_t>(pointer)];
        return (pointer < 2 ? m_gauge.Plan().Band(it) : m_gauge.Plan().Flag(pointer, it))
            .center()
            .toPoint();
    }

    /// `from` moved along the scale by `degrees`.
    QPoint Along(QPoint from, double degrees) {
        const GaugeGeometry& geometry = m_gauge.Plan();
        return from + QPoint(0, qRound(geometry.ToY(degrees) - geometry.ToY(0)));
    }

    void Press(QPoint at) { QTest::mousePress(&m_gauge, Qt::LeftButton, {}, at); }

    void Release(QPoint at) { QTest::mouseRelease(&m_gauge, Qt::LeftButton, {}, at); }

    void Drag(QPoint to, Qt::MouseButtons down = Qt::LeftButton) {
        QMouseEvent move(QEvent::MouseMove, to, m_gauge.mapToGlobal(to), Qt::NoButton, down,
                         Qt::NoModifier);
        QApplication::sendEvent(&m_gauge, &move);
    }

    void Wheel(QPoint at, int turn) {
        QWheelEvent event(at, m_gauge.mapToGlobal(at), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&m_gauge, &event);
    }

    QWidget m_window;
    QPushButton m_before{"before"};
    LinearGauge m_gauge;
    QPushButton m_after{"after"};
    std::function<void()> m_onMoved = [] {};
    std::vector<std::string> m_told;
};

TEST_F(Gauge, ADragTellsEveryStepThenTheLastOnceMoreThenSettles) {
    const QPoint start = On(2);
    Press(start);
    Drag(Along(start, 20));
    Drag(Along(start, 40));
    const std::string step = m_told.at(0);
    Release(Along(start, 40));
    EXPECT_NEAR(ValueOf(2), 0, 1);
    EXPECT_EQ(ValueOf(2), std::round(ValueOf(2)));
    const std::string end = " 2 at " + QString::number(ValueOf(2)).toStdString();
    EXPECT_THAT(Told(), ElementsAre(step, "moved" + end, "moved" + end, "settled" + end));
}

TEST_F(Gauge, ABandMovesBothItsEndsAndStopsAtTheScale) {
    const QPoint start = On(1);
    Press(start);
    Drag(Along(start, 30));
    EXPECT_NEAR(BandOf(1).From, -10, 1);
    EXPECT_EQ(BandOf(1).To - BandOf(1).From, 100);
    Drag(Along(start, 500));
    Release(Along(start, 500));
    EXPECT_EQ(BandOf(1).To, 127);
    EXPECT_EQ(BandOf(0).From, -40) << "the other is for the handlers to move";
    EXPECT_EQ(Told().back(), "settled 1 at 27");
}

TEST_F(Gauge, EscapePutsEverythingBackAndTellsTheStepBackOnly) {
    m_onMoved = [this] { // as one that keeps the other handle away and the bands along
        m_gauge.PointerIndex(3);
        m_gauge.PointerValue(100);
    };
    const QPoint start = On(2);
    Press(start);
    Drag(Along(start, 30));
    EXPECT_EQ(ValueOf(3), 100);
    Told();
    QTest::keyClick(&m_gauge, Qt::Key_Escape);
    EXPECT_THAT(Told(), ElementsAre("moved 2 at -40"));
    EXPECT_EQ(ValueOf(2), -40);
    EXPECT_EQ(ValueOf(3), 60);
    Drag(Along(start, 60));
    Release(Along(start, 60));
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Gauge, APointerTakenOutOfTheHandTellsNoMore) {
    const QPoint start = On(2);
    Press(start);
    Drag(Along(start, 20));
    m_gauge.LetGo();
    Told();
    Drag(Along(start, 40));
    Release(Along(start, 40));
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Gauge, TabWalksThroughTheDraggablePointersAndOn) {
    m_gauge.PointerIndex(0);
    m_gauge.PointerMouseControl(0);
    m_before.setFocus();
    std::vector<int> picked;
    QTest::keyClick(&m_before, Qt::Key_Tab);
    while (m_gauge.hasFocus()) {
        picked.push_back(m_gauge.PickedPointer().value_or(-1));
        QTest::keyClick(&m_gauge, Qt::Key_Tab);
    }
    EXPECT_THAT(picked, ElementsAre(2, 3, 1));
    EXPECT_TRUE(m_after.hasFocus());
    QTest::keyClick(&m_after, Qt::Key_Backtab);
    EXPECT_EQ(m_gauge.PickedPointer(), 1);
}

TEST_F(Gauge, ARepeatingKeySettlesOnceAndLosingTheFocusSettlesIt) {
    m_gauge.setFocus(Qt::TabFocusReason);
    const auto repeat = [this](QEvent::Type type) {
        QKeyEvent event(type, Qt::Key_Up, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&m_gauge, &event);
    };
    QTest::keyPress(&m_gauge, Qt::Key_Up);
    repeat(QEvent::KeyRelease);
    repeat(QEvent::KeyPress);
    EXPECT_THAT(Told(), ElementsAre("moved 2 at -39", "moved 2 at -38"));
    m_after.setFocus();
    EXPECT_THAT(Told(), ElementsAre("moved 2 at -38", "settled 2 at -38"));
    QTest::keyRelease(&m_gauge, Qt::Key_Up);
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Gauge, TheWheelMovesThePickedPointerAndSettlesAfterAPause) {
    const QPoint at = On(3);
    Wheel(at, 120);
    EXPECT_THAT(Told(), IsEmpty()) << "not picked yet";
    QTest::mouseClick(&m_gauge, Qt::LeftButton, {}, at);
    for (const int turn : {60, 60, 240}) {
        Wheel(at, turn);
    }
    EXPECT_THAT(Told(), ElementsAre("moved 3 at 61", "moved 3 at 63"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_told.empty(); }));
    EXPECT_THAT(Told(), ElementsAre("moved 3 at 63", "settled 3 at 63"));
}

TEST_F(Gauge, OneHandAtATimeHoldsAPointer) {
    m_gauge.ScaleMin(-15.928); // a scale on which a step is no unit
    m_gauge.ScaleMax(2.428);
    m_gauge.PointerIndex(3);
    m_gauge.PointerDecimals(3);
    m_gauge.PointerValue(-10);
    QTest::mouseClick(&m_gauge, Qt::LeftButton, {}, On(3));
    Wheel(On(3), 120);
    EXPECT_THAT(Told(), ElementsAre("moved 3 at -9.9"));
    QTest::keyPress(&m_gauge, Qt::Key_Up);
    EXPECT_THAT(Told(), ElementsAre("moved 3 at -9.9", "settled 3 at -9.9", "moved 3 at -9.8"));
    QTest::keyRelease(&m_gauge, Qt::Key_Shift);
    EXPECT_THAT(Told(), IsEmpty()) << "another key than the one that moves it";
    QTest::keyRelease(&m_gauge, Qt::Key_Up);
    EXPECT_THAT(Told(), ElementsAre("moved 3 at -9.8", "settled 3 at -9.8"));
    Press(On(3));
    QTest::keyClick(&m_gauge, Qt::Key_Up);
    EXPECT_THAT(Told(), IsEmpty()) << "it is in the mouse's hand";
    Release(On(3));
}

/// Counts what a gauge has drawn.
class PaintLog : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            Painted |= static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }

    QRegion Painted;
};

TEST_F(Gauge, DrawsOnlyWhatHasChanged) {
    PaintLog log;
    m_gauge.installEventFilter(&log);
    const auto painted = [&](double bar, const char* caption) {
        m_gauge.BarValue(bar);
        m_gauge.Caption(caption);
        QApplication::processEvents();
        return std::exchange(log.Painted, {}).boundingRect();
    };
    painted(20, " 20 C");
    EXPECT_TRUE(painted(20, " 20 C").isEmpty());
    EXPECT_EQ(painted(20, " 21 C"), m_gauge.Plan().Caption());
    const QRect bar = painted(21, " 21 C");
    EXPECT_TRUE(m_gauge.Plan().BarColumn().toAlignedRect().contains(bar));
    EXPECT_GT(bar.height(), 0);
    EXPECT_LT(bar.height(), 60);
    painted(300, " 21 C");
    EXPECT_TRUE(painted(400, " 21 C").isEmpty()) << "beyond the scale already";
    m_gauge.removeEventFilter(&log);
}

TEST_F(Gauge, TheCursorSaysWhatCanBeDragged) {
    QTest::mouseMove(&m_gauge, On(2));
    EXPECT_EQ(m_gauge.cursor().shape(), Qt::SizeVerCursor);
    QTest::mouseMove(&m_gauge, On(1));
    EXPECT_EQ(m_gauge.cursor().shape(), Qt::OpenHandCursor);
    QTest::mouseMove(&m_gauge, {4, 4});
    EXPECT_EQ(m_gauge.cursor().shape(), Qt::ArrowCursor);
}

} // namespace
} // namespace tqx
