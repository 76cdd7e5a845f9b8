#include "console/control_centre_limits_fixture.h"

#include <device/display_rows.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <ostream>

namespace tqx {
namespace {

/// What a drag ends in: the writes, and where the handles stand.
struct Outcome {
    const char* Writes;
    double Low;
    double High;
};

struct DragCase {
    const char* Name;
    std::int16_t Row; ///< the channel on the gauge
    int Pointer;      ///< what is dragged, a band by its lower end
    double Low;       ///< where the handles and the bands stand before
    double High;
    double To;
    Outcome OnPrinterPort; ///< written when it is let go, after the handle rule
    Outcome OnSMBus;       ///< written on the move and at its end, ahead of the handle rule
};

// clang-format off
constexpr std::array<DragCase, 17> Drags{{
    {"a low handle up to the line stays",
     3, 2, 0, 50, 44, {"W69=2C W68=32", 44, 50}, {"W69=2C W68=32 W69=2C W68=32", 44, 50}},
    {"a low handle over the line is thrown back",
     3, 2, 0, 50, 45, {"W69=28 W68=32", 39.84, 50}, {"W69=2D W68=32 W69=2D W68=32", 39.84, 50}},
    {"a high handle on the line stays",
     3, 3, 45, 90, 50, {"W69=2D W68=32", 45, 50}, {"W69=2D W68=32 W69=2D W68=32", 45, 50}},
    {"a high handle over the line is thrown back",
     3, 3, 45, 90, 49, {"W69=2D W68=37", 45, 55}, {"W69=2D W68=31 W69=2D W68=37", 45, 55}},
    {"below zero the chip takes sign and magnitude",
     4, 2, 0, 50, -20, {"W48=94 W40=32", -20, 50}, {"W48=94 W40=32 W48=94 W40=32", -20, 50}},
    {"a high handle of volts goes to whole ones",
     19, 3, 2.6, 2.95, 2.4, {"W4D=DF W45=FF", 2.6, 3}, {"W4D=DF W45=CE W4D=DF W45=FF", 2.6, 3}},
    {"a high handle of volts may come closer than the line",
     19, 3, 2.8, 2.98, 2.9, {"W4D=F0 W45=F8", 2.8, 2.9},
     {"W4D=F0 W45=F8 W4D=F0 W45=F8", 2.8, 2.9}},
    {"a low handle of volts may not",
     19, 2, 1, 2.9, 2.8, {"W4D=E4 W45=F8", 2.661, 2.9},
     {"W4D=F0 W45=F8 W4D=F0 W45=F8", 2.661, 2.9}},
    {"a half goes to the even whole number",
     18, 3, 2.5, 10, 2.5, {"W4E=28 W46=30", 2.5, 3}, {"W4E=28 W46=28 W4E=28 W46=30", 2.5, 3}},
    {"below zero too",
     17, 3, -2.5, 0, -3.4, {"W4F=BB W47=C2", -2.5, -2}, {"W4F=BB W47=AF W4F=BB W47=C2", -2.5, -2}},
    {"nothing keeps a high handle that is thrown back on the scale",
     3, 3, 120, 125, 118, {"W69=78 W68=82", 120, 130}, {"W69=78 W68=76 W69=78 W68=82", 120, 130}},
    {"nor a low one",
     3, 2, -128, -126, -125, {"W69=FF W68=FE", -136.16, -126},
     {"W69=FD W68=FE W69=FD W68=F3", -125, -115}},
    {"a band takes both handles along",
     3, 0, 10, 60, 30, {"W69=1E W68=50", 30, 80}, {"W69=A W68=3C W69=A W68=3C", 10, 60}},
    {"a narrow band needs no room between them",
     3, 1, 10, 12, 30, {"W69=1E W68=20", 30, 32}, {"W69=A W68=C W69=A W68=14", 10, 20}},
    {"a fan has one handle and no rule",
     7, 2, 1000, 90, 10000, {"W60=87", 10000, 90}, {"W60=87 W60=87", 10000, 90}},
    {"without a channel nothing is written",
     0, 2, 0, 50, 45, {"", 39.84, 50}, {"", 39.84, 50}},
    {"nor on the row that has none",
     6, 3, 45, 90, 49, {"", 45, 55}, {"", 45, 55}},
}};

// clang-format on

std::ostream& operator<<(std::ostream& out, const DragCase& c) {
    return out << c.Name;
}

class DraggedPointer : public test::ControlCentreLimits,
                       public testing::WithParamInterface<DragCase> {
protected:
    void SetUp() override {
        ControlCentreLimits::SetUp();
        panel->resize(1120, 2400); // some pixels for each step of a scale
        EnterAndStop();
    }

    /// The row of the case on the gauge, its limits where the case begins.
    void Begin(const DragCase& c) {
        const bool hasChannel = c.Row != 0 && c.Row != 6;
        const int scaleOf = hasChannel ? c.Row : 3;
        Tabs().setCurrentIndex(scaleOf < 7 ? 0 : scaleOf < 15 ? 1 : 2);
        QCoreApplication::processEvents();
        Click(Row(scaleOf));
        panel->StopMonitorTimers();
        panel->SelectedChannel = c.Row;
        test::Put(Gauge(), 2, c.Low);
        test::Put(Gauge(), 3, c.High);
        for (const int band : {0, 1}) {
            Gauge().PointerIndex(band);
            Gauge().PointerFrom(c.Low);
            Gauge().PointerTo(c.High);
        }
        link->Take();
    }

    void DragExactly(const DragCase& c) {
        const GaugeGeometry& geometry = Gauge().Plan();
        const QPoint from = Grip(c.Pointer);
        const double start = c.Pointer == 3 ? c.High : c.Low;
        const double to = geometry.ToY(geometry.ToValue(from.y()) + c.To - start);
        QTest::mousePress(&Gauge(), Qt::LeftButton, Qt::NoModifier, from);
        MoveTo(QPointF(from.x(), to));
        QTest::mouseRelease(&Gauge(), Qt::LeftButton, Qt::NoModifier, QPoint(from.x(), qRound(to)));
    }

    void ExpectOutcome(const Outcome& outcome, bool bands) {
        EXPECT_EQ(Traffic(), outcome.Writes);
        EXPECT_NEAR(test::Place(Gauge(), 2), outcome.Low, 1e-9);
        EXPECT_NEAR(test::Place(Gauge(), 3), outcome.High, 1e-9);
        for (const int band : {0, 1}) {
            Gauge().PointerIndex(band);
            EXPECT_TRUE(!bands || std::abs(Gauge().PointerFrom() - outcome.Low) < 1e-9) << band;
            EXPECT_TRUE(!bands || std::abs(Gauge().PointerTo() - outcome.High) < 1e-9) << band;
        }
    }
};

TEST_P(DraggedPointer, SendsItsBytesAndEndsWhereTheRuleOfTheMediumLeavesIt) {
    const DragCase& c = GetParam();
    const bool bands = KindOfRow(c.Row) != RowKind::Fan;
    ChoosePrinterPort();
    Begin(c);
    DragExactly(c);
    ExpectOutcome(c.OnPrinterPort, bands);
    ChooseSMBus();
    Begin(c);
    DragExactly(c);
    ExpectOutcome(c.OnSMBus, bands);
}

INSTANTIATE_TEST_SUITE_P(All, DraggedPointer, testing::ValuesIn(Drags));

} // namespace
} // namespace tqx
