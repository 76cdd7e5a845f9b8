#pragma once

#include "registers/bits.h"
#include "registers/register_console.h"
#include "support/hands.h"
#include "support/recorded_bench.h"

#include <controls/number_entry.h>
#include <controls/row_label.h>

#include <QLabel>
#include <QTabWidget>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {

/// A register console on view, with a chip at 58h on the printer port behind a link that records,
/// and what a test does with its hands.
class RegisterConsoleTest : public testing::Test, protected test::Hands {
protected:
    test::RecordedBench recorded;
    Bench& bench = recorded.Bench;
    test::RecordingLink& link = recorded.Link;
    RegisterConsole console{bench};

    RegisterConsoleTest() {
        bench.Bus.BusCell = {.SlaveAddress = 0x58, .PortAddress = 0x378, .ComsMedium = 1};
        console.resize(1000, 620);
        console.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&console));
    }

    QWidget& Window() override { return console; }

    RowLabel& Row(int index) {
        return Find<RowLabel>(QString("read_writedisplaytext(%1)").arg(index));
    }

    /// Turns to the row's tab and clicks it, as a hand does.
    void ClickRow(int index) {
        ShowTabOf(index);
        QTest::mouseMove(&Row(index));
        QTest::mouseClick(&Row(index), Qt::LeftButton);
    }

    void ShowTabOf(int index) {
        auto& tabs = Find<QTabWidget>("RWTAB");
        tabs.setCurrentWidget(Row(index).parentWidget());
    }

    void ClickBit(int bit) { QTest::mouseClick(&Find(QString("bit%1").arg(bit)), Qt::LeftButton); }

    /// The eight digits, bit 7 first.
    std::string Bits() {
        std::string bits;
        for (int bit = 7; bit >= 0; --bit) {
            bits += Find<BitDigit>(QString("bit%1").arg(bit)).Caption().toStdString();
        }
        return bits;
    }

    void Enter(const char* box, const QString& keys) { Hands::Enter(Find(box), keys); }
};

} // namespace tqx
