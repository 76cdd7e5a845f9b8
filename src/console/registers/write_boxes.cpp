#include "registers/write_boxes.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>

#include <QGridLayout>

namespace tqx {
namespace {

const QString WrittenInHex = QStringLiteral("Previous value written, hexadecimal");
const QString WrittenInDec = QStringLiteral("Previous value written, decimal");

NumberEntry* Entry(const QString& name, NumberEntry::Base base, const QString& text,
                   const QString& means) {
    auto* entry = new NumberEntry(base);
    entry->setObjectName(name);
    entry->setAccessibleName(means);
    entry->setToolTip(means + ". Enter writes it");
    entry->setFont(look::NumbersFont(look::Size::Large));
    entry->Put(text);
    return entry;
}

QLabel* WrittenLabel(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setFont(look::NumbersFont(look::Size::Section, look::Strong));
    return label;
}

QLabel* Quiet(const QString& text) {
    auto* label = new QLabel(text);
    look::SetInk(*label, look::QuietInk);
    return label;
}

} // namespace

WriteBoxes::WriteBoxes(QWidget* parent)
    : QGroupBox("Write", parent)
    , m_grid(new QGridLayout(this))
    , m_hex(Entry("HexTXT", NumberEntry::Hexadecimal, "00", "Byte to write, in hexadecimal"))
    , m_dec(Entry("DecTXT", NumberEntry::Decimal, "0", "Byte to write, in decimal"))
    , m_writtenHex(WrittenLabel("p_Value_written_hex_label"))
    , m_writtenDec(WrittenLabel("p_Value_written_dec_label")) {
    setObjectName("SSPanel37");
    m_grid->setHorizontalSpacing(2 * look::Grid);
    m_grid->setVerticalSpacing(look::Grid);
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnStretch(3, 1);
    m_grid->addWidget(new QLabel("Hex"), 0, 0);
    m_grid->addWidget(m_hex, 0, 1);
    m_grid->addWidget(new QLabel("Dec"), 0, 2);
    m_grid->addWidget(m_dec, 0, 3);
    m_grid->addWidget(Quiet("Previous value written:"), 2, 0, 1, 4);
    m_grid->addWidget(Quiet("(Hex)"), 3, 0);
    m_grid->addWidget(m_writtenHex, 3, 1);
    m_grid->addWidget(Quiet("(Dec)"), 3, 2);
    m_grid->addWidget(m_writtenDec, 3, 3);
    NothingWritten();
}

void WriteBoxes::PreviousValueWritten(std::uint8_t value) {
    kit::ShowReadout(*m_writtenHex, WrittenInHex, HexText(value));
    kit::ShowReadout(*m_writtenDec, WrittenInDec, QString::number(value));
}

void WriteBoxes::NothingWritten() {
    kit::ShowReadout(*m_writtenHex, WrittenInHex, {});
    kit::ShowReadout(*m_writtenDec, WrittenInDec, {});
}

} // namespace tqx
