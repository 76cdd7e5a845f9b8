#include "inputs_page.h"

#include <controls/factories.h>
#include <controls/number_text.h>
#include <simulated/simulated_board.h>

#include <QCheckBox>
#include <QGridLayout>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <cmath>

namespace tqx {
namespace {

/// In the order of ChipInput.
constexpr std::array<const char*, sim::ChipInputCount> Captions{
    "IntTemp", "ExtTemp0", "ExtTemp1", "Fan 0", "Fan 1", "Fan 2", "Fan 3",
    "Fan 4",   "Fan 5",    "Fan 6",    "Fan 7", "Vbatt", "+5V",   "-12V",
    "+12V",    "Vccp",     "Ain 0",    "Ain 1", "Ain 2", "Ain 3", "Ain 4",
    "Ain 5",   "Ain 6",    "Ain 7",    "Ain 8", "Ain 9", "3.3VS", "3.3VM"};

constexpr double HottestDegrees = 127; // and the coldest below zero
constexpr double FastestFan = 20000;   // RPM
constexpr double VoltageCounts = 255;
constexpr int ValueWidth = 7; // the longest is -15.920

constexpr int SliderWidth = 22 * look::Grid; // at least
constexpr int PagesOfASlider = 10;

constexpr int SliderColumn = 4; // the last

} // namespace

int InputRange::LastPosition() const {
    return PositionOf(Max);
}

int InputRange::PositionOf(double value) const {
    return static_cast<int>(std::lround((std::clamp(value, Min, Max) - Min) / Step));
}

double InputRange::ValueAt(int position) const {
    return std::clamp(Min + position * Step, Min, Max);
}

QString InputRange::Text(double value) const {
    return QString::number(value, 'f', Decimals).rightJustified(ValueWidth) + ' ' + Unit;
}

InputRange RangeOf(sim::ChipInput input) {
    const sim::InputFacts& facts = sim::FactsOf(input);
    const QString caption = QLatin1String(Captions.at(static_cast<std::size_t>(input)));
    switch (facts.Kind) {
    case sim::InputKind::Temperature:
        return {caption, "C", -HottestDegrees, HottestDegrees, 1, 1};
    case sim::InputKind::Fan:
        return {caption, "RPM", 0, FastestFan, 100, 0};
    case sim::InputKind::Voltage:
        break;
    }
    return {caption, "V", facts.Min, facts.Max, (facts.Max - facts.Min) / VoltageCounts, 3};
}

QString SharedPinNote(sim::ChipInput input) {
    switch (input) {
    case sim::ChipInput::Ext2Temp:
        return "Measured while bit 3 of 00h is clear.";
    case sim::ChipInput::Ain8:
    case sim::ChipInput::Ain9:
        return "Measured while bit 3 of 00h is set.";
    default:
        return sim::FactsOf(input).Kind == sim::InputKind::Fan
                   ? QStringLiteral("Measured while its bit of 01h is clear.")
                   : QString();
    }
}

InputLine::InputLine(sim::SimulatedBoard& board, sim::ChipInput input, QGridLayout& grid, int row)
    : QObject(grid.parentWidget())
    , m_board(board)
    , m_input(input)
    , m_range(RangeOf(input)) {
    MakeControls();
    NameControls();
    ConnectControls();
    int column = 0;
    for (QWidget* control : std::initializer_list<QWidget*>{new QLabel(m_range.Caption), m_value,
                                                            m_hold, m_box, m_slider}) {
        grid.addWidget(control, row, column++);
    }
    ShowSetting(m_board.ValueAt(m_input));
}

void InputLine::MakeControls() {
    m_value = kit::Readout(kit::MemberName("InputValueLBL", static_cast<int>(m_input)),
                           m_range.Text(m_range.Min));
    m_hold = new QCheckBox("Hold");
    m_hold->setChecked(m_board.IsForced(m_input));
    m_box = new HandValue;
    m_box->setFont(look::NumbersFont());
    m_box->setRange(m_range.Min, m_range.Max);
    m_box->setDecimals(m_range.Decimals);
    m_box->setSingleStep(m_range.Step);
    m_box->setAlignment(Qt::AlignRight);
    m_box->setKeyboardTracking(false); // half a number is not held
    m_slider = new HandSlider;
    m_slider->setOrientation(Qt::Horizontal);
    m_slider->setRange(0, m_range.LastPosition());
    m_slider->setPageStep(m_range.LastPosition() / PagesOfASlider);
    m_slider->setMinimumWidth(SliderWidth);
}

void InputLine::NameControls() {
    const int index = static_cast<int>(m_input);
    const QString range = QStringLiteral("%1 to %2 %3")
                              .arg(m_range.Min, 0, 'f', m_range.Decimals)
                              .arg(m_range.Max, 0, 'f', m_range.Decimals)
                              .arg(m_range.Unit);
    const QString note = SharedPinNote(m_input);
    m_value->setToolTip(QStringLiteral("What is at the pin now. %1").arg(note).trimmed());
    kit::Name(
        *m_hold, kit::MemberName("HoldCHK", index), QStringLiteral("Hold %1").arg(m_range.Caption),
        QStringLiteral("Ticked: holds %1 at the value on the right. Unticked: it runs by itself")
            .arg(m_range.Caption));
    kit::Name(*m_box, kit::MemberName("HoldTXT", index),
              QStringLiteral("%1, value to hold").arg(m_range.Caption),
              QStringLiteral("%1: set a value to hold it").arg(range));
    kit::Name(*m_slider, kit::MemberName("HoldSlider", index),
              QStringLiteral("%1, slider").arg(m_range.Caption), m_box->toolTip());
}

void InputLine::ConnectControls() {
    connect(m_hold, &QCheckBox::toggled, this, [this](bool hold) {
        if (hold) {
            HoldAt(m_box->value());
        } else {
            LetRun();
        }
    });
    connect(m_box, &QDoubleSpinBox::valueChanged, this, &InputLine::HoldAt);
    connect(m_slider, &QSlider::valueChanged, this,
            [this](int position) { HoldAt(m_range.ValueAt(position)); });
}

void InputLine::Refresh() {
    const double value = m_board.ValueAt(m_input);
    m_value->setText(m_board.Powered() ? m_range.Text(value) : NoValue);
    if (!m_hold->isChecked() && !m_box->hasFocus()) { // nobody is typing
        ShowSetting(value);
    }
}

void InputLine::LetRun() {
    m_board.Release(m_input);
    Refresh();
}

void InputLine::HoldAt(double value) {
    m_board.Force(m_input, value);
    const QSignalBlocker quiet(m_hold);
    m_hold->setChecked(true);
    ShowSetting(value);
    Refresh();
}

void InputLine::ShowSetting(double value) {
    const QSignalBlocker quietBox(m_box);
    const QSignalBlocker quietSlider(m_slider);
    m_box->setValue(value);
    m_slider->setValue(m_range.PositionOf(value));
}

InputsPage::InputsPage(sim::SimulatedBoard& board, std::initializer_list<sim::InputKind> kinds) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(look::Grid / 2);
    grid->setColumnStretch(SliderColumn, 1);
    for (const sim::InputFacts& facts : sim::ChipInputs) {
        if (std::find(kinds.begin(), kinds.end(), facts.Kind) != kinds.end()) {
            m_lines.push_back(new InputLine(board, facts.Input, *grid, grid->rowCount()));
        }
    }
    grid->setRowStretch(grid->rowCount(), 1);
}

void InputsPage::Refresh() {
    for (InputLine* line : m_lines) {
        line->Refresh();
    }
}

} // namespace tqx
