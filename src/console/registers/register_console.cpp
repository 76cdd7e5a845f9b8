#include "registers/register_console.h"

#include "registers/bench_tests.h"
#include "registers/bits.h"
#include "registers/readout.h"
#include "registers/rows.h"
#include "registers/write_boxes.h"

#include <controls/look.h>
#include <controls/number_text.h>
#include <device/bench.h>
#include <device/register_map.h>

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>

#include <chrono>

namespace tqx {
namespace {

constexpr std::chrono::milliseconds ContinuousInterval{1};
constexpr int ReadoutWidth = 94 * look::Grid;

} // namespace

RegisterConsole::RegisterConsole(Bench& bench, QWidget* parent)
    : QWidget(parent)
    , m_bench(bench)
    , m_rows(new RegisterRows)
    , m_readout(new RegisterReadout)
    , m_bits(new RegisterBits)
    , m_writeBoxes(new WriteBoxes)
    , m_benchTests(new BenchTests(
          m_rows->Page(RegisterTab::Main), *m_writeBoxes, m_bench.Failures,
          [this](std::uint8_t value) { WriteEntry(value); }, this))
    , m_continuousTimer(new QTimer(this)) {
    setObjectName("ReadWritePanel");
    m_continuousTimer->setObjectName("Timer3");
    MakeLayout(*MakeReadWriteGroup());
    Connect();
}

RegisterConsole::~RegisterConsole() {
    // They are deleted later than this object and tell of the focus that they lose on the way.
    m_rows->disconnect(this);
    m_bits->disconnect(this);
}

QWidget* RegisterConsole::MakeReadWriteGroup() {
    m_continuous = new QPushButton("Read Continuously");
    m_continuous->setObjectName("SSRibbon5");
    m_continuous->setCheckable(true);
    m_continuous->setAutoDefault(false);
    m_continuous->setMinimumWidth(m_continuous->sizeHint().width() + 4 * look::Grid);
    m_continuous->setToolTip("Read this register continuously");
    m_continuousLabel = new QLabel;
    m_continuousLabel->setObjectName("continuous_reading_label");
    StopContinuousReading();

    auto* heading = new QLabel("(Click Digits)");
    heading->setObjectName("bitname(9)");
    look::SetInk(*heading, look::QuietInk);
    m_readOnly = new QLabel("Read only");
    m_readOnly->setObjectName("ReadOnlyNote");
    m_readOnly->setToolTip("You cannot write this register here");
    m_readOnly->hide();
    auto* headings = new QHBoxLayout;
    headings->addWidget(heading, 1);
    headings->addWidget(m_readOnly);

    auto* group = new QGroupBox("Read/Write");
    group->setObjectName("SSPanel38");
    auto* toggle = new QHBoxLayout;
    toggle->setSpacing(2 * look::Grid);
    toggle->addWidget(m_continuous);
    toggle->addWidget(m_continuousLabel, 1);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(2 * look::Grid);
    column->addLayout(toggle);
    column->addLayout(headings);
    column->addWidget(m_bits);
    return group;
}

void RegisterConsole::MakeLayout(QWidget& readWrite) {
    auto* side = new QVBoxLayout;
    side->setSpacing(2 * look::Grid);
    side->addWidget(m_readout);
    side->addWidget(&readWrite);
    side->addWidget(m_writeBoxes);
    side->addStretch(1);
    m_readout->setFixedWidth(ReadoutWidth);
    readWrite.setFixedWidth(ReadoutWidth);
    m_writeBoxes->setFixedWidth(ReadoutWidth);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3 * look::Grid);
    layout->addWidget(m_rows, 1);
    layout->addLayout(side);
}

void RegisterConsole::Connect() {
    const auto showPointer = [this] { setCursor(Qt::PointingHandCursor); };
    connect(m_rows, &RegisterRows::PointerEntered, this, showPointer);
    connect(m_rows, &RegisterRows::PointerLeft, this, &RegisterConsole::move_mouse_away_readwrite);
    const LinkFailures& failures = m_bench.Failures;
    connect(m_rows, &RegisterRows::RowClicked, this,
            OnLink(failures, [this](int row) { ClickRow(row); }));

    connect(m_bits, &RegisterBits::PointerEntered, this, [this, showPointer] {
        if (m_benchTests->EntryEnabled()) {
            showPointer();
        }
    });
    connect(m_bits, &RegisterBits::PointerLeft, this, &RegisterConsole::move_mouse_away_readwrite);
    connect(m_bits, &RegisterBits::Clicked, this,
            OnLink(failures, [this](int bit) { FlipBit(bit); }));

    connect(
        &m_writeBoxes->Hex(), &NumberEntry::EntryConfirmed, this,
        OnLink(failures, [this](const QString& text) { Enter(text, 16, m_writeBoxes->Dec()); }));
    connect(
        &m_writeBoxes->Dec(), &NumberEntry::EntryConfirmed, this,
        OnLink(failures, [this](const QString& text) { Enter(text, 10, m_writeBoxes->Hex()); }));

    connect(m_benchTests, &BenchTests::PointerSet, this, &RegisterConsole::SetPointer);

    connect(m_continuous, &QPushButton::clicked, this, &RegisterConsole::SwitchContinuousReading);
    connect(m_continuousTimer, &QTimer::timeout, this,
            OnLink(failures, [this] { ContinuousRead(); }));
}

BusCell& RegisterConsole::Cell() const {
    return m_bench.Bus.BusCell;
}

void RegisterConsole::ClickRow(int row) {
    if (row != m_selectedRegister) {
        m_writeBoxes->NothingWritten();
    }
    m_selectedRegister = row;
    m_rows->ClickRow(row);
    DisplayRegister(row);
}

void RegisterConsole::DisplayRegister(int index) {
    const RegisterEntry& entry = RegisterMap[static_cast<std::size_t>(index)];
    Cell().RegisterPointer = entry.Address;
    m_registerOnView = entry.Address;
    // Should the read below fail, the last register's byte must not stand under this one's name.
    m_readout->Clear();
    m_bits->Clear();
    m_readout->TypeLabel(entry.TypeLabel);
    m_bits->Legends(entry.Legends);
    SetEntryEnabled(entry.Entry);
    RefreshReadDisplay();
    ShowBits();
}

void RegisterConsole::SetEntryEnabled(bool enabled) {
    m_benchTests->EntryEnabled(enabled);
    m_readOnly->setVisible(!enabled);
}

void RegisterConsole::RefreshReadDisplay() {
    m_bench.Bus.ReadRegister();
    ShowAddress();
    ShowValueRead();
}

void RegisterConsole::ShowAddress() {
    m_registerOnView = Cell().RegisterPointer;
    m_readout->Address(*m_registerOnView);
}

void RegisterConsole::ShowValueRead() {
    m_readout->Value(Cell().ReadValue);
}

void RegisterConsole::ShowBits() {
    m_bits->Show(m_showWriteValue ? Cell().WriteValue : Cell().ReadValue);
    ShowAddress();
}

void RegisterConsole::FlipBit(int bit) {
    if (!m_benchTests->EntryEnabled()) {
        return;
    }
    if (m_registerOnView) {
        // The monitor and the tool windows have moved the pointer since.
        Cell().RegisterPointer = *m_registerOnView;
    }
    m_bench.Bus.ReadRegister();
    // Runs as the last step, and after a failed transfer too: a flip that never reached the chip
    // must not stay on the panel.
    const auto showBits = qScopeGuard([this] { ShowBits(); });
    const auto mask = static_cast<std::uint8_t>(1U << bit);
    BitDigit& digit = m_bits->Bit(bit);
    const bool set = !digit.IsOne();
    digit.Caption(set ? "1" : "0");
    Cell().WriteValue =
        static_cast<std::uint8_t>(set ? Cell().ReadValue | mask : Cell().ReadValue & ~mask);
    m_bench.Bus.WriteRegister();
    m_writeBoxes->PreviousValueWritten(Cell().WriteValue);
    m_bench.Bus.ReadRegister();
}

void RegisterConsole::Enter(const QString& text, int base, NumberEntry& other) {
    const auto value = ByteOf(text, base);
    if (!m_benchTests->EntryEnabled() || !value) {
        return;
    }
    WriteEntry(*value);
    other.Value(*value);
}

void RegisterConsole::WriteEntry(std::uint8_t value) {
    const QScopedValueRollback showWriteValue(m_showWriteValue, true);
    Cell().WriteValue = value;
    Cell().RegisterPointer = static_cast<std::uint8_t>(m_selectedRegister);
    m_bench.Bus.WriteRegister();
    m_writeBoxes->PreviousValueWritten(value);
    ShowBits();
}

void RegisterConsole::SetPointer(std::uint8_t address) {
    Cell().RegisterPointer = address;
    m_readout->TypeLabel("Reg not selected via text");
    ShowBits();
}

void RegisterConsole::SwitchContinuousReading(bool on) {
    if (!on) {
        StopContinuousReading();
        return;
    }
    m_continuousTimer->start(ContinuousInterval);
    m_continuousLabel->setText("Continuous Reading is On");
}

void RegisterConsole::StopContinuousReading() {
    m_continuousTimer->stop();
    m_continuousLabel->setText("Continuous Reading is Off");
    m_continuous->setChecked(false);
}

void RegisterConsole::ContinuousRead() {
    m_bench.Bus.ReadRegister();
    ShowValueRead();
    ShowBits();
}

void RegisterConsole::move_mouse_away_readwrite() {
    unsetCursor();
    m_rows->LeaveRows();
}

} // namespace tqx
