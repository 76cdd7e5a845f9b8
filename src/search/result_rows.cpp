#include "result_rows.h"

#include <controls/number_text.h>

namespace tqx {
namespace {

constexpr int PrinterPortBlanks = 50;
constexpr int SMBusBlanks = 98;

constexpr QLatin1String PrinterPortWord("Printer");
constexpr QLatin1String SMBusWord("SMBus");

/// The characters of `row` from the `first` to the `last` from its end, both counted from 1.
QStringView FromEnd(QStringView row, int first, int last) {
    return row.size() < first ? QStringView() : row.sliced(row.size() - first, first - last + 1);
}

} // namespace

QString PrinterPortRow(std::uint8_t address, std::uint16_t portAddress, int number) {
    return QStringLiteral("Found an TQX7716 at:%1h, on printer port:%2h")
               .arg(HexText(address / 2U), HexText(portAddress)) +
           QString(PrinterPortBlanks, ' ') + PrinterPortWord + ' ' + QString::number(number);
}

QString SMBusRow(std::uint8_t address) {
    return QStringLiteral("An TQX7716 was found at:%1h, on the SMBus").arg(HexText(address)) +
           QString(SMBusBlanks, ' ') + SMBusWord + HexText(address);
}

RowTail TailOfRow(QStringView row) {
    if (FromEnd(row, 9, 3) == PrinterPortWord) {
        return {.Medium = RowMedium::PrinterPort, .Number = FromEnd(row, 1, 1).toInt()};
    }
    if (FromEnd(row, 7, 3) == SMBusWord) {
        const uint address = FromEnd(row, 2, 1).toUInt(nullptr, 16);
        return {.Medium = RowMedium::SMBus, .Address = static_cast<std::uint8_t>(address)};
    }
    return {};
}

QString SentenceOfRow(const QString& row) {
    return row.left(row.indexOf(QStringLiteral("   "))).trimmed();
}

} // namespace tqx
