#pragma once

#include "control_centre/control_centre.h"
#include "support/hands.h"
#include "support/recorded_bench.h"

#include <controls/alarm_lamp.h>
#include <controls/linear_gauge.h>
#include <controls/row_label.h>
#include <controls/strip_chart.h>
#include <device/bench.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace tqx::test {

/// The control centre on view, with the chip on the printer port behind a link that records.
class ControlCentreTest : public testing::Test, protected Hands {
protected:
    RecordedBench recorded;
    Bench& bench = recorded.Bench;
    RecordingLink* link = &recorded.Link;
    std::unique_ptr<ControlCentre> panel;

    void SetUp() override {
        bench.Channels.ConfigureChannels();
        ChoosePrinterPort();
        panel = std::make_unique<ControlCentre>(bench);
        panel->resize(1120, 620);
        panel->show();
        QApplication::setActiveWindow(panel.get());
        link->Take();
    }

    void ChoosePrinterPort() {
        bench.Bus.BusCell.ComsMedium = ComsPrinterPort;
        bench.Bus.BusCell.SlaveAddress = 0x58;
        bench.Bus.BusCell.PortAddress = 0x378;
    }

    void ChooseSMBus() {
        bench.Bus.BusCell.ComsMedium = ComsSMBus;
        bench.Bus.BusCell.SlaveAddress = 0x2C;
    }

    /// As the panel stands after its first entry, with the monitor stopped.
    void EnterAndStop() {
        panel->SetUpControlCentre();
        panel->ControlCentreReady = true;
        panel->StopMonitorTimers();
        link->Take();
    }

    std::string Traffic() { return link->TakeTraffic(); }

    RowLabel& Row(int row) { return Child<RowLabel>("visualdisplaytext(%1)", row); }

    AlarmLamp& Lamp(int lamp) { return Child<AlarmLamp>("SSPanel11(%1)", lamp); }

    QLabel& GPIO(int label) { return Child<QLabel>("GPIO(%1)", label); }

    LinearGauge& Gauge() { return Child<LinearGauge>("limits_gauge"); }

    StripChart& Chart() { return Child<StripChart>("MainStripChart"); }

    QTabWidget& Tabs() { return Child<QTabWidget>("BargraphTab"); }

    QAbstractButton& VisStart() { return Child<QAbstractButton>("VisStartCHK"); }

    QTimer& Timer(const char* name) { return *panel->findChild<QTimer*>(QLatin1String(name)); }

    bool MonitorRuns() {
        const bool runs = Timer("BargraphTimer").isActive();
        EXPECT_EQ(Timer("GPIOTimer").isActive(), runs);
        EXPECT_EQ(Timer("InterruptTimer").isActive(), runs);
        EXPECT_EQ(VisStart().isChecked(), runs);
        EXPECT_EQ(VisStart().text(), runs ? "Stop" : "Start");
        return runs;
    }

    static void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

    template <class T>
    T& Child(const char* name, int index = 0) {
        const QString full = QString::fromLatin1(name);
        return Find<T>(*panel, full.contains("%1") ? full.arg(index) : full);
    }
};

} // namespace tqx::test
