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
        const bool good = ByteOf(entry.text(), 16).has_value();
        const QString why = "\"%1\" is not a byte, so nothing is sent. Enter 0 to FF.";
        const QString text = good ? tooltip : why.arg(entry.text());
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
    : AddressBox(Entry("AddrptrTXT", index, "Address of row %1"))
    , ReadOut(kit::NumberLabel(kit::MemberName("ReadLBL", index), "00", look::GreenInk))
    , ReadButton(kit::Button(kit::MemberName("ReadByteCMD", index), "<<Read",
                             "Reads the byte at this row's address"))
    , DataBox(Entry("WriteDataTXT", index, "Byte to write of row %1"))
    , WriteButton(kit::Button(kit::MemberName("WriteByteCMD", index), "Write>>",
                              "Writes this row's byte to its address")) {
    ReadOut->setAccessibleName(QStringLiteral("Byte read of row %1").arg(index + 1));
    ReadOut->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ReadOut->setMinimumWidth(ReadOut->fontMetrics().horizontalAdvance("0000"));
    ReadButton->setAccessibleName(QStringLiteral("Read row %1").arg(index + 1));
    WriteButton->setAccessibleName(QStringLiteral("Write row %1").arg(index + 1));
    AddressBox->Put(HexText(static_cast<unsigned>(index)));
    DataBox->Put("0");

    QLabel* addressMark = Mark("AddressMark", index);
    QLabel* dataMark = Mark("DataMark", index);
    MarkWhatIsNoByte(*AddressBox, *addressMark, look::DarkBlueInk,
                     "Address in hexadecimal, 0 to FF");
    MarkWhatIsNoByte(*DataBox, *dataMark, look::BodyInk, "Byte to write, in hexadecimal, 0 to FF");

    QWidget* const controls[Columns] = {addressMark, AddressBox, ReadOut,    ReadButton,
                                        dataMark,    DataBox,    WriteButton};
    for (int column = 0; column < Columns; ++column) {
        grid.addWidget(controls[column], index + 1, column);
    }
}

std::optional<std::uint8_t> EEPROMRow::Address() const {
    return ByteOf(AddressBox->text(), 16);
}

std::optional<std::uint8_t> EEPROMRow::WriteData() const {
    return ByteOf(DataBox->text(), 16);
}

} // namespace tqx
