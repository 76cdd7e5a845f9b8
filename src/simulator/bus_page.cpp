#include "bus_page.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <simulated/simulated_board.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include <array>

namespace tqx {
namespace {

struct Speed {
    const char* Caption;
    double Hertz;
};

constexpr std::array Speeds{Speed{"As &fast as possible", 0}, Speed{"&100 kHz", 100000},
                            Speed{"&400 kHz", 400000}};

} // namespace

BusPage::BusPage(sim::SimulatedBoard& board)
    : m_board(board) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2 * look::Grid);
    layout->addWidget(MakeSpeeds());
    layout->addWidget(MakeConnection());
    layout->addStretch();
}

QWidget* BusPage::MakeSpeeds() {
    auto* group = new QGroupBox("Bus speed");
    auto* layout = new QVBoxLayout(group);
    int index = 0;
    for (const Speed& speed : Speeds) {
        auto* button = new QRadioButton(speed.Caption);
        button->setChecked(m_board.BusHertz() == speed.Hertz);
        kit::Name(*button, kit::MemberName("SpeedOPT", index++), {},
                  "The clock rate of the bus, on the printer port and on the SMBus");
        connect(button, &QRadioButton::toggled, this, [this, hertz = speed.Hertz](bool chosen) {
            if (chosen) {
                m_board.BusHertz(hertz);
            }
        });
        layout->addWidget(button);
    }
    layout->addWidget(kit::SmallPrint({}, "At a clock rate transfers take as long as they would on "
                                          "a real bus: a register read at 100 kHz takes 0.39 ms."));
    return group;
}

QWidget* BusPage::MakeConnection() {
    auto* group = new QGroupBox("Connection");
    auto* layout = new QVBoxLayout(group);
    QCheckBox* plugged = kit::CheckBox("PluggedCHK", "&Plugged in",
                                       "Clear it to pull the plug, set it to put it back");
    plugged->setChecked(m_board.Plugged());
    connect(plugged, &QCheckBox::toggled, this, [this](bool in) { m_board.Plugged(in); });
    QCheckBox* powered = kit::CheckBox("PoweredCHK", "P&ower on", "Switches the board off and on");
    powered->setChecked(m_board.Powered());
    connect(powered, &QCheckBox::toggled, this, [this](bool on) { m_board.Powered(on); });
    layout->addWidget(plugged);
    layout->addWidget(kit::SmallPrint(
        {}, "With the plug pulled, nothing answers; the chip keeps its registers."));
    layout->addSpacing(2 * look::Grid);
    layout->addWidget(powered);
    layout->addWidget(kit::SmallPrint({}, "Without power, nothing answers. At power-on the "
                                          "registers are reset; the EEPROM keeps its content."));
    return group;
}

} // namespace tqx
