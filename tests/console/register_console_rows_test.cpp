#include "console/register_console_fixture.h"

#include <controls/number_text.h>
#include <device/register_map.h>

#include <QApplication>

#include <map>

namespace tqx {
namespace {

using testing::ElementsAre;
using enum RowColour;

class RegisterConsoleRows : public RegisterConsoleTest {
protected:
    /// The rows that are not Plain.
    std::map<int, RowColour> Coloured() {
        std::map<int, RowColour> coloured;
        for (int index = 0; index < 112; ++index) {
            if (Row(index).ForeColor() != Plain) {
                coloured[index] = Row(index).ForeColor();
            }
        }
        return coloured;
    }

    using Colours = std::map<int, RowColour>;
};

QString QText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

TEST_F(RegisterConsoleRows, EveryRegisterStandsUnderItsTabAndShowsWhatIsKnownOfIt) {
    const auto& tabs = Find<QTabWidget>("RWTAB");
    for (const RegisterEntry& entry : RegisterMap) {
        SCOPED_TRACE(int{entry.Address});
        const unsigned value = 0xFFU - entry.Address;
        link.Registers[entry.Address] = static_cast<std::uint8_t>(value);
        ClickRow(entry.Address);
        EXPECT_EQ(tabs.currentIndex(), static_cast<int>(entry.Tab));
        EXPECT_TRUE(Row(entry.Address).isVisible());
        EXPECT_EQ(Row(entry.Address).text(), QText(entry.Caption));
        EXPECT_EQ(Text("current_reg_type_label"), entry.TypeLabel);
        EXPECT_EQ(Text("current_reg_address_label"), HexText(entry.Address).toStdString());
        for (std::size_t bit = 0; bit < 8; ++bit) {
            EXPECT_EQ(Text(QString("bitname(%1)").arg(bit)), entry.Legends[bit]);
        }
        EXPECT_EQ(Text("p_Value_read_hex_label"), HexText(value).toStdString());
        EXPECT_EQ(Text("p_Value_read_dec_label"), std::to_string(value));
        EXPECT_EQ(Bits(), QString::number(0x100 + value, 2).mid(1).toStdString());
    }
}

TEST_F(RegisterConsoleRows, TabLeadsToOneRowOfAPageAndThenOn) {
    ShowTabOf(0x30);
    Row(0x30).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Row(0x30), Qt::Key_Down);
    QTest::keyClick(&Row(0x31), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "SSRibbon5");
    EXPECT_EQ(Coloured(), Colours());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &Row(0x31));
}

} // namespace
} // namespace tqx
