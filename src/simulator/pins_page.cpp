#include "pins_page.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>
#include <simulated/simulated_board.h>

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>

namespace tqx {
namespace {

constexpr int LinesInAColumn = 9;
constexpr int ColumnsOfALine = 4;
constexpr int ThermLine = 16;
constexpr std::array Addresses{0x58, 0x5A, 0x5C};

QString UseText(int line, sim::PinUse use) {
    switch (use) {
    case sim::PinUse::Input:
        return "input";
    case sim::PinUse::Output:
        return "output";
    case sim::PinUse::OtherFunction:
        break;
    }
    return line == ThermLine ? QStringLiteral("THERM") : QStringLiteral("Fan %1").arg(line);
}

QString AddressText(int address) {
    return QStringLiteral("%1h (SMBus %2h)")
        .arg(HexText(static_cast<unsigned>(address)), HexText(static_cast<unsigned>(address) / 2));
}

} // namespace

PinsPage::PinsPage(sim::SimulatedBoard& board)
    : m_board(board) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2 * look::Grid);
    layout->addWidget(MakeGPIO());
    layout->addWidget(MakeJumpers());
    layout->addStretch();
}

QWidget* PinsPage::MakeGPIO() {
    auto* group = new QGroupBox("GPIO lines");
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(look::Grid / 2);
    for (int line = 0; line < sim::Chip::GPIOLineCount; ++line) {
        MakeLine(*grid, line);
    }
    grid->setColumnStretch(ColumnsOfALine - 1, 1);
    grid->setColumnStretch(2 * ColumnsOfALine - 1, 1);
    auto* hint = kit::SmallPrint({}, "High puts a level on the pin from outside, which shows while "
                                     "the line is an input. The digit is the level on the pin.");
    grid->addWidget(hint, LinesInAColumn, 0, 1, 2 * ColumnsOfALine);
    return group;
}

void PinsPage::MakeLine(QGridLayout& grid, int line) {
    const auto index = static_cast<std::size_t>(line);
    m_levels[index] = kit::Readout(kit::MemberName("GPIOLevelLBL", line), "0");
    m_uses[index] = kit::Heading(kit::MemberName("GPIOUseLBL", line), {});
    m_uses[index]->setMinimumWidth(m_uses[index]->fontMetrics().horizontalAdvance("THERM "));
    auto* high = new QCheckBox("High");
    high->setChecked(m_board.TheChip().OutsideLevel(line));
    kit::Name(*high, kit::MemberName("GPIOHighCHK", line), QStringLiteral("GPIO %1 high").arg(line),
              "Puts a high level on the pin from outside; clear, a low one");
    connect(high, &QCheckBox::toggled, this, [this, line](bool level) {
        m_board.TheChip().GPIOLevel(line, level);
        Refresh();
    });

    const int row = line % LinesInAColumn;
    int column = line / LinesInAColumn * ColumnsOfALine;
    for (QWidget* control :
         std::initializer_list<QWidget*>{new QLabel(QStringLiteral("GPIO %1").arg(line)),
                                         m_levels[index], high, m_uses[index]}) {
        grid.addWidget(control, row, column++);
    }
}

QWidget* PinsPage::MakeJumpers() {
    auto* group = new QGroupBox("Switches and jumpers");
    auto* form = new QFormLayout(group);
    form->setHorizontalSpacing(4 * look::Grid);
    form->setVerticalSpacing(look::Grid);
    form->addRow(MakeChassisSwitch());
    form->addRow(MakeWriteProtect());
    form->addRow("&Address pins", MakeAddressPins());
    form->addRow("&Board mode", MakeBoardMode());
    return group;
}

QCheckBox* PinsPage::MakeChassisSwitch() {
    QCheckBox* open = kit::CheckBox(
        "ChassisCHK", "&Chassis open",
        "Opens the chassis switch: the alarm in bit 6 of 23h stays until bit 1 of 07h "
        "clears it while the chassis is closed");
    open->setChecked(m_board.TheChip().ChassisOpen());
    connect(open, &QCheckBox::toggled, this,
            [this](bool isOpen) { m_board.TheChip().ChassisOpen(isOpen); });
    return open;
}

QCheckBox* PinsPage::MakeWriteProtect() {
    QCheckBox* set = kit::CheckBox(
        "WriteProtectCHK", "EEPROM &write-protected",
        "Sets the write-protect jumper: bit 3 of 13h reads 1 and nothing is programmed "
        "or erased");
    set->setChecked(m_board.TheChip().WriteProtectPin());
    connect(set, &QCheckBox::toggled, this,
            [this](bool isSet) { m_board.TheChip().WriteProtectPin(isSet); });
    return set;
}

HandCombo* PinsPage::MakeAddressPins() {
    auto* list = new HandCombo;
    for (const int address : Addresses) {
        list->addItem(AddressText(address), address);
    }
    list->setCurrentIndex(list->findData(int{m_board.SlaveAddress()}));
    kit::Name(*list, "AddressCOMBO", "Address pins",
              "The address at which the chip answers from now on");
    connect(list, &QComboBox::currentIndexChanged, this, [this, list] {
        m_board.SlaveAddress(static_cast<std::uint8_t>(list->currentData().toInt()));
    });
    return list;
}

HandCombo* PinsPage::MakeBoardMode() {
    auto* list = new HandCombo;
    list->addItems({"False", "True"});
    list->setCurrentIndex(m_board.BoardMode() ? 1 : 0);
    kit::Name(*list, "BoardModeCOMBO", "Board mode",
              "How the board wires the printer port: it answers only in this board mode");
    connect(list, &QComboBox::currentIndexChanged, this,
            [this](int index) { m_board.BoardMode(index == 1); });
    return list;
}

void PinsPage::Refresh() {
    for (int line = 0; line < sim::Chip::GPIOLineCount; ++line) {
        const auto index = static_cast<std::size_t>(line);
        m_levels[index]->setText(m_board.TheChip().GPIOLevel(line) ? "1" : "0");
        m_uses[index]->setText(UseText(line, m_board.TheChip().UseOf(line)));
    }
}

} // namespace tqx
