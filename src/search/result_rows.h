#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

namespace tqx {

/// The medium that the tail of a result row names.
enum class RowMedium { PrinterPort, SMBus, Foreign };

/// What Finish reads from the end of a result row.
struct RowTail {
    RowMedium Medium = RowMedium::Foreign;
    /// On a printer-port row the row's number, from 1; it has one digit, so a tenth row is Foreign.
    int Number = 0;
    /// On an SMBus row the chip's address in 7-bit form.
    std::uint8_t Address = 0;

    bool operator==(const RowTail&) const = default;
};

/// The row of a chip on a printer port: the sentence for the user, blanks, and a tail for Finish.
/// `address` in 8-bit form (shown in 7-bit form), `number` of the row from 1.
QString PrinterPortRow(std::uint8_t address, std::uint16_t portAddress, int number);

/// The row of a chip on the SMBus, `address` in 7-bit form.
QString SMBusRow(std::uint8_t address);

/// The tail of a row.
RowTail TailOfRow(QStringView row);

/// The part of a row that the user reads: all before the long run of blanks.
QString SentenceOfRow(const QString& row);

} // namespace tqx
