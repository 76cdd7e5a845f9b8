#include "eeprom_com/eeprom_row.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_entry.h>
#include <controls/number_text.h>

#include <QGridLayout>

namespace tqx {
namespace {

constexpr int Columns = 7; // mark, address, read data, read, write data, write, mark

NumberEntry* Entry(const char* name, int index, const QString& accessibleName) {
    NumberEntry* entry = kit::Entry(kit::MemberName(name, index), NumberEntry::Hexadecimal,
                                    accessibleName.arg(index + 1));
    entry->setAlignment(Qt::AlignRight);
    return entry;
}

/// Keeps `mark` and the tooltip of `entry` in step with its text.
void MarkWhatIsNoByte(NumberEntry& entry, QLabel& mark, QRgb ink, const QString& tooltip) {
    const auto update = [&entry, &mark, ink, tooltip] {
        const bool good = ByteOf(entry.Text(), 16).has_value();
        const QString why = "\"%1\" is no byte, so nothing is sent. Enter 0 to FF.";
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
    QLabel* mark = kit::Label(kit::MemberName(name, index), {});
    mark->setFont(look::WordsFont(look::Size::Section, look::Strong));
    look::SetInk(*mark, look::DarkRedInk);
    mark->setFixedWidth(2 * look::Grid);
    mark->setAlignment(Qt::AlignCenter);
    return mark;
}

} // namespace

EEPROMRow::EEPROMRow(int index, QGridLayout& grid)
    : AddrptrTXT(Entry("AddrptrTXT", index, "Address of row %1"))
    , ReadLBL(kit::NumberLabel(kit::MemberName("ReadLBL", index), "00", look::GreenInk))
    , ReadByteCMD(kit::Button(kit::MemberName("ReadByteCMD", index), "<<Read",
                              "Reads the byte at this row's address"))
    , WriteDataTXT(Entry("WriteDataTXT", index, "Byte to write of row %1"))
    , WriteByteCMD(kit::Button(kit::MemberName("WriteByteCMD", index), "Write>>",
                               "Writes this row's byte to its address")) {
    ReadLBL->setAccessibleName(QStringLiteral("Byte read of row %1").arg(index + 1));
    ReadLBL->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ReadLBL->setMinimumWidth(ReadLBL->fontMetrics().horizontalAdvance("0000"));
    ReadByteCMD->setAccessibleName(QStringLiteral("Read row %1").arg(index + 1));
    WriteByteCMD->setAccessibleName(QStringLiteral("Write row %1").arg(index + 1));
    AddrptrTXT->Text(HexText(static_cast<unsigned>(index)));
    WriteDataTXT->Text("0");

    QLabel* addressMark = Mark("AddressMark", index);
    QLabel* dataMark = Mark("DataMark", index);
    MarkWhatIsNoByte(*AddrptrTXT, *addressMark, look::DarkBlueInk,
                     "Address in hexadecimal, 0 to FF");
    MarkWhatIsNoByte(*WriteDataTXT, *dataMark, look::BodyInk,
                     "Byte to write, in hexadecimal, 0 to FF");

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
