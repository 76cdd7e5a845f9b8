#include "gpio_config/gpio_config_frm.h"

#include <controls/combos.h>
#include <controls/factories.h>
#include <controls/look.h>
#include <device/bench.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

// What stands where in the GPIO control panel, and what each control sets off.
namespace tqx {
namespace {

/// Rows of a group of lines; the first column holds their headings.
enum Row { NumberRow, SelectorRow, DirectionRow, PolarityRow };

HandCombo* Combo(const char* name, int index, int line, const QString& what) {
    auto* combo = new HandCombo;
    const QString meaning = what.arg(line);
    kit::Name(*combo, kit::MemberName(name, index), meaning,
              meaning + "; a change writes all settings of this window to the chip");
    return combo;
}

QGroupBox* Frame(const QString& name, const QString& title, QGridLayout*& grid) {
    QGroupBox* frame = kit::Frame(name, title);
    grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(2 * look::Grid);
    return frame;
}

/// The headings of group 0 or 1.
void AddHeadings(QGridLayout& grid, int group) {
    grid.addWidget(kit::Heading(kit::MemberName("Label3", group), "GPIO Number:"), NumberRow, 0);
    grid.addWidget(kit::Heading(kit::MemberName("Label1", group), "Direction:"), DirectionRow, 0);
    grid.addWidget(kit::Heading(kit::MemberName("Label2", group), "Polarity, Active"), PolarityRow,
                   0);
}

} // namespace

void GPIOConfigFRM::MakeLayout() {
    QPushButton* readAgain = kit::Button(
        "ReadAgainCMD", "Read Settings from TQX7716 again.",
        "Shows directions and polarities as the chip has them; writes nothing", "Alt+R");
    connect(readAgain, &QPushButton::clicked, this,
            OnLink(m_bench.Failures, [this] { ReadAgain(); }));
    QPushButton* close = kit::Button("CloseCMD", "Close",
                                     "Closes this window; the chip keeps its settings", "Alt+C");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &GPIOConfigFRM::close);

    auto* groups = new QGridLayout;
    groups->setSpacing(3 * look::Grid);
    groups->addWidget(MakeFanLines(), 0, 0);
    groups->addWidget(MakePlainLines(), 1, 0);
    groups->addWidget(MakeThermLine(), 0, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(readAgain);
    buttons->addStretch();
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(groups);
    layout->addLayout(buttons);
}

QGroupBox* GPIOConfigFRM::MakeFanLines() {
    QGridLayout* grid = nullptr;
    QGroupBox* frame = Frame("FanLinesFrame", "Fan pins", grid);
    AddHeadings(*grid, 0);
    grid->addWidget(kit::Heading("Label2(2)", "GPIO/Fan"), SelectorRow, 0);
    for (int line = 0; line < gpio::FanLineCount; ++line) {
        AddSelector(*grid, line, line + 1);
        AddLine(*grid, line, line + 1);
    }
    return frame;
}

QGroupBox* GPIOConfigFRM::MakePlainLines() {
    QGridLayout* grid = nullptr;
    QGroupBox* frame = Frame("PlainLinesFrame", "GPIO pins", grid);
    AddHeadings(*grid, 1);
    for (int line = gpio::FanLineCount; line < gpio::ThermLine; ++line) {
        AddLine(*grid, line, line - gpio::FanLineCount + 1);
    }
    return frame;
}

QGroupBox* GPIOConfigFRM::MakeThermLine() {
    QGridLayout* grid = nullptr;
    QGroupBox* frame = Frame("ThermLineFrame", "THERM pin", grid);
    AddSelector(*grid, gpio::FanLineCount, 0);
    AddLine(*grid, gpio::ThermLine, 0);
    return frame;
}

void GPIOConfigFRM::AddSelector(QGridLayout& grid, int index, int column) {
    const int line = index == gpio::FanLineCount ? gpio::ThermLine : index;
    HandCombo* selector = Combo("EnabledCOMBO", index, line, "Function of GPIO%1");
    m_function[static_cast<std::size_t>(index)] = selector;
    connect(selector, &HandCombo::currentIndexChanged, this, OnLink(m_bench.Failures, [this, line] {
                if (!m_loading) {
                    EnableLine(line);
                }
                Changed();
            }));
    grid.addWidget(selector, SelectorRow, column);
}

void GPIOConfigFRM::AddLine(QGridLayout& grid, int line, int column) {
    const auto i = static_cast<std::size_t>(line);
    QLabel* number =
        kit::NumberLabel(kit::MemberName("Label4", line), QString::number(line), look::BodyInk);
    number->setAlignment(Qt::AlignCenter);
    m_direction[i] = Combo("DirectionCombo", line, line, "Direction of GPIO%1");
    m_polarity[i] = Combo("Polarity", line, line, "Active polarity of GPIO%1");
    for (HandCombo* combo : {m_direction[i], m_polarity[i]}) {
        connect(combo, &HandCombo::currentIndexChanged, this,
                OnLink(m_bench.Failures, [this] { Changed(); }));
    }
    grid.addWidget(number, NumberRow, column);
    grid.addWidget(m_direction[i], DirectionRow, column);
    grid.addWidget(m_polarity[i], PolarityRow, column);
}

} // namespace tqx
