#pragma once

#include "blocks/block_panel.h"
#include "support/hands.h"

#include <controls/number_entry.h>
#include <device/bench.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tqx {

/// A block panel on view, and what a test does with its hands. The message box writes down what it
/// is told.
class BlockPanelUnderTest : test::Hands {
public:
    explicit BlockPanelUnderTest(Bench& bench)
        : Panel(bench, [this](const QString& title, const QString& message, std::uint8_t okOnly) {
            Messages.push_back((title + "|" + message).toStdString() + "|" +
                               std::to_string(okOnly));
            return std::uint8_t{1};
        }) {
        Panel.Load();
        Panel.Enter();
        Panel.resize(1006, 610);
        Panel.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&Panel));
    }

    QWidget& Window() override { return Panel; }

    using Hands::Click;
    using Hands::Find;
    using Hands::Text;

    QWidget& Member(const char* array, int column) { return Find(Hands::Member(array, column)); }

    NumberEntry& WriteBox(int column) {
        return Find<NumberEntry>(Hands::Member("BlockWriteTXT", column));
    }

    /// The texts of columns `first` to `last` of a row of the grid, parted by blanks.
    std::string Row(const char* array, int first, int last) {
        std::string row;
        for (int column = first; column <= last; ++column) {
            const auto* label = qobject_cast<QLabel*>(&Member(array, column));
            const QString text = label != nullptr ? label->text() : WriteBox(column).text();
            row += column == first ? "" : " ";
            row += text.toStdString();
        }
        return row;
    }

    void Type(const QString& box, const QString& keys, bool confirm = true) {
        Enter(Find(box), keys, confirm);
    }

    /// Address, command, count and final PEC as the side of the panel shows them.
    std::string PECReadOuts() {
        return Text("DeviceAddressFcsLBL") + " " + Text("AddrPtrFcsLBL") + " " +
               Text("ByteCountFcsLBL") + " " + Text("FinalPECLBL");
    }

    QColor MarkColour() { return Find("PECOKShape").property("FillColor").value<QColor>(); }

    bool ButtonsUsable() {
        return Find("BlockReadCMD").isEnabled() && Find("BlockWriteCMD").isEnabled();
    }

    std::vector<std::string> Messages;
    BlockPanel Panel;
};

} // namespace tqx
