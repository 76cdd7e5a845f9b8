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

#include <algorithm>
#include <utility>

namespace tqx {
namespace {

/// The pause ahead of each byte to a register, in seconds.
constexpr float RegisterPause = 0.01F;

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

class EEPROMComFRM::BusyScope {
public:
    explicit BusyScope(EEPROMComFRM& window)
        : m_window(window) {
        m_window.EnterBusy();
    }

    ~BusyScope() {
        m_window.LeaveBusy();
        m_window.m_rwAllProgress->setValue(0);
    }

    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    EEPROMComFRM& m_window;
};

EEPROMComFRM::EEPROMComFRM(Bench& bench, const MessageDoor& door, Waiter wait,
                           const QString& caption)
    : ToolWindow("EEPROMComFRM", caption)
    , m_bench(bench)
    , m_modes(bench.Bus, door)
    , m_wait(std::move(wait)) {
    MakeLayout();
    ConnectControls();
    m_accessEEPROMCHK->setEnabled(m_bench.Bus.BusCell.ComsMedium == ComsPrinterPort);
    m_eraseEEPROMCHK->setEnabled(false);
    m_eepromHighByteCOMBO->setEnabled(false);
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
        m_bench.Link->PrinterPortLink().EEPROMLink().ErasePage(m_eepromHighByteCOMBO->Value(),
                                                               eeprom::PageStart(k), 0);
    }
    m_wait(eeprom::ProgramPause);
    if (!Unloading()) {
        m_modes.EndErase();
    }
}

void EEPROMComFRM::EnterBusy() {
    m_focusBeforeBusy = focusWidget();
    setCursor(Qt::WaitCursor);
    for (QGroupBox* frame :
         {m_rwFrame, m_autoFillFrame, m_eepromFrame, m_commandFrame, m_closeFrame}) {
        frame->setEnabled(false);
    }
}

void EEPROMComFRM::LeaveBusy() {
    unsetCursor();
    for (QGroupBox* frame :
         {m_rwFrame, m_autoFillFrame, m_eepromFrame, m_commandFrame, m_closeFrame}) {
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
    const BusyScope busy(*this);
    if (m_eepromAccess) {
        m_modes.SelectReadMode();
    }
    for (int i = 0; i < RowCount; ++i) {
        m_rwAllProgress->setValue(i);
        ReadRow(m_rows[static_cast<std::size_t>(i)]);
    }
}

void EEPROMComFRM::AutoRead(bool on) {
    m_autoReadCHK->setText(on ? "AutoRead is On" : "AutoRead is Off");
    OrElseOff(*m_autoReadCHK, [&] { SetAutoRead(on); });
}

void EEPROMComFRM::AutoReadTick() {
    OrElseOff(*m_autoReadCHK, [this] {
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
    const BusyScope busy(*this);
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
    const BusyScope busy(*this);
    if (m_eepromAccess) {
        OrElseOff(*m_autoReadCHK, [this] { WriteAllEEPROM(); });
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
        m_rwAllProgress->setValue(i);
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
        m_rwAllProgress->setValue(i);
        WriteRow(row);
    }
}

void EEPROMComFRM::AccessEEPROM(bool on) {
    m_eepromAccess = on;
    m_eepromHighByteCOMBO->setEnabled(on);
    m_eraseEEPROMCHK->setEnabled(on);
}

void EEPROMComFRM::EraseBeforeWrites(bool on) {
    m_eraseBeforeWrite = on;
    m_eepromHighByteCOMBO->setEnabled(on);
    for (EEPROMRow& row : m_rows) {
        row.WriteByteCMD->setEnabled(!on);
    }
}

void EEPROMComFRM::AddressFill() {
    bool isNumber = false;
    unsigned first = m_rows.front().AddrptrTXT->Text().toUInt(&isNumber, 16);
    if (!isNumber) {
        return;
    }
    if (first > 0xFF) {
        first = 0xFF;
        m_rows.front().AddrptrTXT->Text("FF");
    }
    for (unsigned i = 1; i < RowCount; ++i) {
        m_rows[i].AddrptrTXT->Text(HexText(first + i));
    }
}

void EEPROMComFRM::RandomFill() {
    for (EEPROMRow& row : m_rows) {
        row.WriteDataTXT->Text(HexText(m_random.NextByte()));
    }
}

void EEPROMComFRM::ReadDataFill() {
    for (EEPROMRow& row : m_rows) {
        row.WriteDataTXT->Text(row.ReadLBL->text());
    }
}

void EEPROMComFRM::ReadRow(EEPROMRow& row) {
    const auto address = row.Address();
    if (!address) {
        row.ReadLBL->setText(NoValue);
        return;
    }
    const std::uint8_t byte = m_eepromAccess
                                  ? m_bench.Link->PrinterPortLink().EEPROMLink().ReadEEPROM(
                                        m_eepromHighByteCOMBO->Value(), *address)
                                  : m_bench.Coms.ReadRegisterByte(*address);
    row.ReadLBL->setText(HexText(byte));
}

void EEPROMComFRM::WriteRow(const EEPROMRow& row) {
    const std::uint8_t address = row.Address().value();
    const std::uint8_t byte = row.WriteData().value();
    if (m_eepromAccess) {
        m_bench.Link->PrinterPortLink().EEPROMLink().WriteEEPROM(m_eepromHighByteCOMBO->Value(),
                                                                 address, byte);
    } else {
        m_bench.Coms.WriteRegisterByte(address, byte);
    }
}

} // namespace tqx
