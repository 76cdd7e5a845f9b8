#include "faults_page.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <simulated/simulated_board.h>

#include <QGridLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace tqx {
namespace {

enum When : int { Off, Always, EveryNth };

constexpr int MostNth = 9999;
constexpr unsigned UsualNth = 10;

struct FaultText {
    const char* Caption;
    const char* What;
    const char* Occasion;
};

constexpr const char* Access = "a port access or a call on the SMBus";

/// In the order of Fault.
constexpr std::array<FaultText, sim::FaultCount> Texts{{
    {"No answer", "The chip does not acknowledge its address.", "a transfer to the chip"},
    {"Data stuck low", "Port reads give 00h, calls on the SMBus time out.", Access},
    {"Data stuck high", "Nothing gets through, reads give FFh.", Access},
    {"Clock stuck low", "Nothing moves, calls on the SMBus time out.", Access},
    {"Wrong PEC", "The PEC of a block is damaged.", "a PEC byte"},
    {"Short count", "The chip announces 31 bytes instead of 32.", "a block read"},
    {"Slow bus", "0.1 ms more for a port access, 20 ms for an SMBus call.", Access},
    {"Lost EEPROM write", "Acknowledged, and the EEPROM stays as it was.", "a byte to the EEPROM"},
    {"Link fails", "The call fails with an error.", Access},
}};

sim::Fault FaultAt(int index) {
    return static_cast<sim::Fault>(index);
}

} // namespace

FaultsPage::FaultsPage(sim::SimulatedBoard& board)
    : m_board(board) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(look::Grid / 2);
    grid->setColumnStretch(0, 1);
    for (int index = 0; index < static_cast<int>(sim::FaultCount); ++index) {
        MakeLine(*grid, index);
    }
    auto* allOff = new QPushButton("All &off");
    kit::Name(*allOff, "AllOffCMD", {}, "Switches every fault off");
    connect(allOff, &QPushButton::clicked, this, &FaultsPage::SwitchAllOff);
    grid->addWidget(allOff, grid->rowCount(), 1, 1, 2);
    grid->addWidget(
        kit::SmallPrint({},
                        "Every nth counts what the fault concerns: transfers to the chip, PEC "
                        "bytes, block reads, bytes to the EEPROM. For the others it counts SMBus "
                        "calls and port accesses, of which a register read has 160."),
        grid->rowCount(), 0, 1, 3);
    grid->setRowStretch(grid->rowCount(), 1);
}

void FaultsPage::MakeLine(QGridLayout& grid, int index) {
    Line& line = m_lines.at(static_cast<std::size_t>(index));
    const FaultText& text = Texts.at(static_cast<std::size_t>(index));
    const QString caption = text.Caption;
    line.When = new HandCombo;
    line.When->addItems({"Off", "Always", "Every"});
    kit::Name(*line.When, kit::MemberName("FaultCOMBO", index), caption, text.What);
    line.Nth = new HandNumber;
    line.Nth->setFont(look::NumbersFont());
    line.Nth->setRange(2, MostNth);
    line.Nth->setKeyboardTracking(false);
    kit::Name(*line.Nth, kit::MemberName("FaultEveryTXT", index),
              QStringLiteral("%1, at every nth occasion").arg(caption),
              QStringLiteral("Occurs at every nth occasion from now on; one occasion is %1")
                  .arg(text.Occasion));
    ShowFault(index);
    connect(line.When, &QComboBox::currentIndexChanged, this, [this, index] { SetFault(index); });
    connect(line.Nth, &QSpinBox::valueChanged, this, [this, index] { SetFault(index); });

    const int row = grid.rowCount();
    grid.addWidget(new QLabel(caption), row, 0);
    grid.addWidget(line.When, row, 1);
    grid.addWidget(line.Nth, row, 2);
    QLabel* what = kit::SmallPrint({}, text.What);
    what->setWordWrap(false);
    what->setContentsMargins(0, 0, 0, look::Grid);
    grid.addWidget(what, row + 1, 0, 1, 3);
}

/// Sets the controls to how the board stands.
void FaultsPage::ShowFault(int index) {
    const Line& line = m_lines.at(static_cast<std::size_t>(index));
    const QSignalBlocker quietWhen(line.When);
    const QSignalBlocker quietNth(line.Nth);
    const unsigned every = m_board.TheFaults().Every(FaultAt(index));
    line.When->setCurrentIndex(every > 1 ? EveryNth : every == 1 ? Always : Off);
    line.Nth->setValue(static_cast<int>(every > 1 ? every : UsualNth));
    line.Nth->setEnabled(every > 1);
}

/// Sets the board to how the controls stand.
void FaultsPage::SetFault(int index) {
    const Line& line = m_lines.at(static_cast<std::size_t>(index));
    const int when = line.When->currentIndex();
    const auto nth = static_cast<unsigned>(line.Nth->value());
    m_board.TheFaults().Every(FaultAt(index), when == EveryNth ? nth : when == Always ? 1 : 0);
    line.Nth->setEnabled(when == EveryNth);
    Q_EMIT Changed();
}

void FaultsPage::SwitchAllOff() {
    m_board.TheFaults().AllOff();
    for (int index = 0; index < static_cast<int>(sim::FaultCount); ++index) {
        ShowFault(index);
    }
    Q_EMIT Changed();
}

int FaultsPage::CountOn() const {
    return static_cast<int>(std::count_if(m_lines.begin(), m_lines.end(), [](const Line& line) {
        return line.When->currentIndex() != Off;
    }));
}

} // namespace tqx
