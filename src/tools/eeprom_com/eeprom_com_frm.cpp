#include "eeprom_com/eeprom_com_frm.h"

#include <console/high_byte_combo.h>
#include <controls/number_entry.h>
#include <controls/number_text.h>
#include <device/bench.h>
#include <device/eeprom_map.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tqx {
namespace {

/// The pause ahead of each byte to a register, in seconds.
constexpr float RegisterPause = 0.01F;

constexpr std::chrono::milliseconds AutoReadInterval{100};

/// Does `steps`; when they fail, AutoRead is switched off and the failure passes on. It is told
/// once so, and not again at every tick.
template <class Steps>
void OrElseOff(QAbstractButton& autoRead, Steps steps) {
    try {
        steps();
    } catch (...) {
        autoRead.setChecked(false);
        throw;
    }
}

} // namespace

EEPROMComFRM::EEPROMComFRM(Bench& bench, const MessageDoor& door, Waiter wait,
                           const QString& caption)
    : ToolWindow("EEPROMComFRM", caption)
    , m_bench(bench)
    , m_modes(bench.Bus, door)
    , m_wait(std::move(wait)) {
    MakeLayout();
    m_autoReadTimer.setObjectName("AutoReadTimer");
    m_autoReadTimer.setInterval(AutoReadInterval);
    connect(&m_autoReadTimer, &QTimer::timeout, this,
            OnLink(m_bench.Failures, [this] { AutoReadTick(); }));
    m_access->setEnabled(m_bench.Bus.BusCell.ComsMedium == ComsPrinterPort);
    m_erase->setEnabled(false);
    m_highByte->setEnabled(false);
}

void EEPROMComFRM::AskToStop() {
    m_autoReadTimer.stop();
}

void EEPROMComFRM::SetAutoRead(bool on) {
    if (!on) {
        m_autoReadTimer.stop();
        return;
    }
    if (m_eepromAccess) {
        m_modes.SelectReadMode();
    }
    m_autoReadTimer.start();
}

void EEPROMComFRM::EraseHighByte() {
    const Yielding yielding(*this);
    m_modes.SelectEraseMode();
    for (int k = 0; k < eeprom::PagesInBlock; ++k) {
        m_wait(eeprom::ProgramPause);
        if (Unloading()) {
            return;
        }
        m_bench.Link->PrinterPortLink().EEPROMLink().ErasePage(m_highByte->Value(),
                                                               eeprom::PageStart(k), 0);
    }
    m_wait(eeprom::ProgramPause);
    if (!Unloading()) {
        m_modes.EndErase();
    }
}

/// Busy until what it gives back goes out of scope.
auto EEPROMComFRM::Busy() {
    EnterBusy();
    return qScopeGuard([this] {
        LeaveBusy();
        m_progress->setValue(0);
    });
}

void EEPROMComFRM::EnterBusy() {
    m_focusBeforeBusy = focusWidget();
    setCursor(Qt::WaitCursor);
    for (QGroupBox* frame :
         {m_rowsFrame, m_autoFillFrame, m_eepromFrame, m_commandFrame, m_closeFrame}) {
        frame->setEnabled(false);
    }
}

void EEPROMComFRM::LeaveBusy() {
    unsetCursor();
    for (QGroupBox* frame :
         {m_rowsFrame, m_autoFillFrame, m_eepromFrame, m_commandFrame, m_closeFrame}) {
        frame->setEnabled(true);
    }
    if (m_focusBeforeBusy) {
        m_focusBeforeBusy->setFocus();
    }
}

void EEPROMComFRM::ReadByte(EEPROMRow& row) {
    if (m_eepromAccess && row.Address()) {
        m_modes.SelectReadMode();
    }
    ReadRow(row);
}

void EEPROMComFRM::ReadAll() {
    const auto busy = Busy();
    if (m_eepromAccess) {
        m_modes.SelectReadMode();
    }
    for (int i = 0; i < RowCount; ++i) {
        m_progress->setValue(i);
        ReadRow(m_rows[static_cast<std::size_t>(i)]);
    }
}

void EEPROMComFRM::AutoRead(bool on) {
    m_autoRead->setText(on ? "AutoRead is On" : "AutoRead is Off");
    OrElseOff(*m_autoRead, [&] { SetAutoRead(on); });
}

void EEPROMComFRM::AutoReadTick() {
    OrElseOff(*m_autoRead, [this] {
        for (EEPROMRow& row : m_rows) {
            ReadRow(row);
        }
    });
}

void EEPROMComFRM::WriteByte(const EEPROMRow& row) {
    if (!row.CanBeWritten()) {
        return;
    }
    const Yielding yielding(*this);
    const auto busy = Busy();
    if (m_eepromAccess) {
        m_modes.SelectWriteMode();
    }
    if (!Unloading()) {
        WriteRow(row);
    }
}

void EEPROMComFRM::WriteAll() {
    if (std::ranges::none_of(m_rows, &EEPROMRow::CanBeWritten)) {
        return;
    }
    const Yielding yielding(*this);
    m_autoReadWasOn = m_autoReadTimer.isActive();
    const auto busy = Busy();
    if (m_eepromAccess) {
        OrElseOff(*m_autoRead, [this] { WriteAllEEPROM(); });
    } else {
        WriteAllRAM();
    }
}

void EEPROMComFRM::WriteAllEEPROM() {
    if (m_autoReadWasOn) {
        SetAutoRead(false);
    }
    if (m_eraseBeforeWrite) {
        EraseHighByte();
    }
    if (Unloading()) {
        return;
    }
    m_modes.SelectWriteMode();
    for (int i = 0; i < RowCount; ++i) {
        const EEPROMRow& row = m_rows[static_cast<std::size_t>(i)];
        m_progress->setValue(i);
        if (!row.CanBeWritten()) {
            continue;
        }
        if (Unloading()) {
            return;
        }
        WriteRow(row);
        m_wait(eeprom::ProgramPause);
    }
    if (m_autoReadWasOn && !Unloading()) {
        SetAutoRead(true);
    }
}

void EEPROMComFRM::WriteAllRAM() {
    for (int i = 0; i < RowCount; ++i) {
        const EEPROMRow& row = m_rows[static_cast<std::size_t>(i)];
        if (!row.CanBeWritten()) {
            continue;
        }
        m_wait(RegisterPause);
        if (Unloading()) {
            return;
        }
        m_progress->setValue(i);
        WriteRow(row);
    }
}

void EEPROMComFRM::AccessEEPROM(bool on) {
    m_eepromAccess = on;
    m_highByte->setEnabled(on);
    m_erase->setEnabled(on);
}

void EEPROMComFRM::EraseBeforeWrites(bool on) {
    m_eraseBeforeWrite = on;
    m_highByte->setEnabled(on);
    for (EEPROMRow& row : m_rows) {
        row.WriteButton->setEnabled(!on);
    }
}

void EEPROMComFRM::AddressFill() {
    bool isNumber = false;
    unsigned first = m_rows.front().AddressBox->text().toUInt(&isNumber, 16);
    if (!isNumber) {
        return;
    }
    if (first > 0xFF) {
        first = 0xFF;
        m_rows.front().AddressBox->Put("FF");
    }
    for (unsigned i = 1; i < RowCount; ++i) {
        m_rows[i].AddressBox->Put(HexText(first + i));
    }
}

void EEPROMComFRM::RandomFill() {
    for (EEPROMRow& row : m_rows) {
        row.DataBox->Put(HexText(m_random.NextByte()));
    }
}

void EEPROMComFRM::ReadDataFill() {
    for (EEPROMRow& row : m_rows) {
        row.DataBox->Put(row.ReadOut->text());
    }
}

void EEPROMComFRM::ReadRow(EEPROMRow& row) {
    const auto address = row.Address();
    if (!address) {
        row.ReadOut->setText(NoValue);
        return;
    }
    const std::uint8_t byte =
        m_eepromAccess
            ? m_bench.Link->PrinterPortLink().EEPROMLink().ReadEEPROM(m_highByte->Value(), *address)
            : m_bench.Coms.ReadRegisterByte(*address);
    row.ReadOut->setText(HexText(byte));
}

void EEPROMComFRM::WriteRow(const EEPROMRow& row) {
    const std::uint8_t address = row.Address().value();
    const std::uint8_t byte = row.WriteData().value();
    if (m_eepromAccess) {
        m_bench.Link->PrinterPortLink().EEPROMLink().WriteEEPROM(m_highByte->Value(), address,
                                                                 byte);
    } else {
        m_bench.Coms.WriteRegisterByte(address, byte);
    }
}

} // namespace tqx
