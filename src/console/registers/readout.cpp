#include "registers/readout.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>

#include <QGridLayout>

namespace tqx {
namespace {

const QString CurrentAddress = QStringLiteral("Current address");
const QString ValueInHex = QStringLiteral("Value, hexadecimal");
const QString ValueInDec = QStringLiteral("Value, decimal");

QLabel* Heading(const QString& text) {
    auto* label = new QLabel(text);
    look::SetInk(*label, look::DisplayQuiet);
    return label;
}

QLabel* ReadOut(const QString& name, const QFont& font, QRgb ink) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setFont(font);
    look::SetInk(*label, ink);
    return label;
}

} // namespace

RegisterReadout::RegisterReadout(QWidget* parent)
    : QFrame(parent)
    , m_typeLabel(ReadOut("current_reg_type_label",
                          look::WordsFont(look::Size::Section, look::Strong), look::DisplayInk))
    , m_addressLabel(ReadOut("current_reg_address_label",
                             look::NumbersFont(look::Size::Section, look::Strong),
                             look::DisplayInk))
    , m_hexLabel(ReadOut("p_Value_read_hex_label",
                         look::NumbersFont(look::Size::ReadOut, look::Strong), look::DisplayGreen))
    , m_decLabel(ReadOut("p_Value_read_dec_label",
                         look::NumbersFont(look::Size::ReadOut, look::Strong),
                         look::DisplayGreen)) {
    look::MakeDisplay(*this);
    TypeLabel("Configuration");
    Clear();
    for (QLabel* digits : {m_hexLabel, m_decLabel}) {
        digits->setMinimumWidth(digits->fontMetrics().horizontalAdvance("255") + look::Grid);
        digits->setMinimumHeight(digits->fontMetrics().height());
    }

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4 * look::Grid, 3 * look::Grid, 4 * look::Grid, 2 * look::Grid);
    grid->setHorizontalSpacing(3 * look::Grid);
    grid->setVerticalSpacing(look::Grid);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    grid->addWidget(Heading("Current Reg:"), 0, 0);
    grid->addWidget(m_typeLabel, 0, 1, 1, 2);
    grid->addWidget(Heading("Current Addr:"), 1, 0);
    grid->addWidget(m_addressLabel, 1, 1, 1, 2);
    grid->addWidget(Heading("Value :"), 2, 0);
    grid->addWidget(Heading("(Hex)"), 2, 1);
    grid->addWidget(Heading("(Dec)"), 2, 2);
    grid->addWidget(m_hexLabel, 3, 1);
    grid->addWidget(m_decLabel, 3, 2);
}

void RegisterReadout::TypeLabel(std::string_view text) {
    kit::ShowReadout(*m_typeLabel, "Current register", TextOf(text));
}

void RegisterReadout::Address(std::uint8_t address) {
    kit::ShowReadout(*m_addressLabel, CurrentAddress, HexText(address));
}

void RegisterReadout::Value(std::uint8_t value) {
    kit::ShowReadout(*m_hexLabel, ValueInHex, HexText(value));
    kit::ShowReadout(*m_decLabel, ValueInDec, QString::number(value));
}

void RegisterReadout::Clear() {
    kit::ShowReadout(*m_addressLabel, CurrentAddress, {});
    kit::ShowReadout(*m_hexLabel, ValueInHex, {});
    kit::ShowReadout(*m_decLabel, ValueInDec, {});
}

} // namespace tqx
