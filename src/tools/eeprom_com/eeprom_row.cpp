#include "eeprom_com/eeprom_row.h"

#include "form_parts.h"

#include <controls/look.h>
#include <controls/number_entry.h>
#include <controls/number_text.h>

#include <QGridLayout>

namespace tqx {
namespace {

constexpr int Columns = 7; // mark, address, read data, read, write data, write, mark

NumberEntry* Entry(const char* name, int index, const QString& accessibleName) {
    auto* entry = new NumberEntry(NumberEntry::Hexadecimal);
    entry->setObjectName(parts::MemberName(name, index));
    entry->setAccessibleName(accessibleName.arg(index + 1));
    entry->setAlignment(Qt::AlignRight);
    return entry;
}

/// Keeps `mark` and the tooltip of `entry` in step with its text.
void MarkWhatIsNoByte(NumberEntry& entry, QLabel& mark, QRgb ink, const QString& tooltip) {
    const auto update = [&entry, &mark, ink, tooltip] {
        const bool good = ByteOf(entry.Text(), 16).has_value();
        const QString why = QObject::tr("\"%1\" is no byte, so nothing is sent. Enter 0 to FF.");
        const QString text = good ? tooltip : why.arg(entry.Text());
        look::SetInk(entry, good ? ink : look::DarkRedInk);
        entry.setToolTip(text);
        entry.setAccessibleDescription(text);
        mark.setText(good ? QString() : QStringLiteral("!"));
        mark.setToolTip(text);
    };
    QObject::connect(&entry, &NumberEntry::textChanged, &mark, update);
    update();
}

QLabel* Mark(const char* name, int index) {
    QLabel* mark = parts::Label({}, parts::MemberName(name, index));
    mark->setFont(look::WordsFont(look::Size::Section, look::Strong));
    look::SetInk(*mark, look::DarkRedInk);
    mark->setFixedWidth(2 * look::Grid);
    mark->setAlignment(Qt::AlignCenter);
    return mark;
}

} // namespace

EEPROMRow::EEPROMRow(int index, QGridLayout& grid)
    : AddrptrTXT(Entry("AddrptrTXT", index, QObject::tr("Address of row %1")))
    , ReadLBL(parts::NumberLabel("00", parts::MemberName("ReadLBL", index), look::GreenInk))
    , ReadByteCMD(parts::Button("<<Read", parts::MemberName("ReadByteCMD", index),
                                QObject::tr("Reads the byte at this row's address")))
    , WriteDataTXT(Entry("WriteDataTXT", index, QObject::tr("Byte to write of row %1")))
    , WriteByteCMD(parts::Button("Write>>", parts::MemberName("WriteByteCMD", index),
                                 QObject::tr("Writes this row's byte to its address"))) {
    ReadLBL->setAccessibleName(QObject::tr("Byte read of row %1").arg(index + 1));
    ReadLBL->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ReadLBL->setMinimumWidth(ReadLBL->fontMetrics().horizontalAdvance("0000"));
    ReadByteCMD->setAccessibleName(QObject::tr("Read row %1").arg(index + 1));
    WriteByteCMD->setAccessibleName(QObject::tr("Write row %1").arg(index + 1));
    AddrptrTXT->Text(HexText(static_cast<unsigned>(index)));
    WriteDataTXT->Text("0");

    QLabel* addressMark = Mark("AddressMark", index);
    QLabel* dataMark = Mark("DataMark", index);
    MarkWhatIsNoByte(*AddrptrTXT, *addressMark, look::DarkBlueInk,
                     QObject::tr("Address in hexadecimal, 0 to FF"));
    MarkWhatIsNoByte(*WriteDataTXT, *dataMark, look::BodyInk,
                     QObject::tr("Byte to write, in hexadecimal, 0 to FF"));

    QWidget* const controls[Columns] = {addressMark, AddrptrTXT,   ReadLBL,     ReadByteCMD,
                                        dataMark,    WriteDataTXT, WriteByteCMD};
    for (int column = 0; column < Columns; ++column) {
        grid.addWidget(controls[column], index + 1, column);
    }
}

std::optional<std::uint8_t> EEPROMRow::Address() const {
    return ByteOf(AddrptrTXT->Text(), 16);
}

std::optional<std::uint8_t> EEPROMRow::WriteData() const {
    return ByteOf(WriteDataTXT->Text(), 16);
}

} // namespace tqx
