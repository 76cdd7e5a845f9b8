#pragma once

#include <controls/number_entry.h>

#include <QCheckBox>
#include <QFrame>
#include <QLabel>

#include <cstdint>

class QGridLayout;

namespace tqx {

/// The bytes ahead of the data of a block transfer with the running PEC after each, and the PEC at
/// the end, in the order in which they go over the bus.
class BlockFrame : public QFrame {
    Q_OBJECT

public:
    explicit BlockFrame(QWidget* parent = nullptr);

    bool UsePEC() const { return m_usePEC->isChecked(); }

    void SlaveAddress(std::uint8_t address);
    /// The command of the transfer.
    void Command(std::uint8_t command);

    /// As it stands in the box, which may be 0 or more than a block holds.
    unsigned ByteCount() const { return m_byteCount->Value(); }
    void ByteCount(unsigned count) { m_byteCount->Value(count); }

    /// @name The running PEC after a byte, and the PEC
    /// @{
    void DeviceAddressPEC(std::uint8_t pec);
    void CommandPEC(std::uint8_t pec);
    void ByteCountPEC(std::uint8_t pec);
    void FinalPEC(std::uint8_t pec);
    void ClearPEC();
    /// @}

Q_SIGNALS:
    /// The user has ticked or unticked `UsePECCHK`.
    void UsePECClicked(bool use);
    /// The user has confirmed a byte count.
    void ByteCountEntered(const QString& text);

private:
    NumberEntry* AddByte(QGridLayout& grid, int row, const QString& caption, const QString& name,
                         const QString& text);
    QLabel* AddPEC(QGridLayout& grid, int row, const QString& name);

    QCheckBox* m_usePEC;
    NumberEntry* m_slaveAddress;
    NumberEntry* m_command;
    NumberEntry* m_byteCount;
    QLabel* m_deviceAddressPEC;
    QLabel* m_commandPEC;
    QLabel* m_byteCountPEC;
    QLabel* m_finalPEC;
};

} // namespace tqx
