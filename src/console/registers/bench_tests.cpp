#include "registers/bench_tests.h"

#include "registers/write_boxes.h"

#include <controls/look.h>
#include <controls/number_text.h>

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <algorithm>
#include <limits>
#include <utility>

namespace tqx {
namespace {

/// The number that the leading digits of `text` stand for in `base`, 0 when it begins with none.
unsigned LeadingNumber(const QString& text, int base) {
    for (qsizetype length = text.size(); length > 0; --length) {
        bool good = false;
        const qulonglong value = text.left(length).toULongLong(&good, base);
        if (good) {
            constexpr qulonglong most = std::numeric_limits<unsigned>::max();
            return static_cast<unsigned>(std::min(value, most));
        }
    }
    return 0;
}

bool IsDecimalDigit(QChar character) {
    return character >= '0' && character <= '9';
}

bool IsCapitalHexDigit(QChar character) {
    return IsDecimalDigit(character) || (character >= 'A' && character <= 'F');
}

void Paint(QPushButton& button, QRgb colour) {
    QPalette palette = button.palette();
    palette.setColor(QPalette::Button, QColor(colour));
    button.setPalette(palette);
}

QLineEdit* Field(const QString& name, const QString& means) {
    auto* field = new QLineEdit("00");
    field->setObjectName(name);
    field->setAccessibleName(means);
    field->setToolTip(means);
    field->setFont(look::NumbersFont());
    field->hide();
    return field;
}

QPushButton* UpdateButton(const QString& name, const QString& means) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    button->setAccessibleName(means);
    button->setToolTip("Press to update");
    button->setAutoDefault(false);
    Paint(*button, look::BenchSent);
    button->hide();
    return button;
}

} // namespace

BenchTests::BenchTests(QWidget& page, WriteBoxes& boxes, const LinkFailures& failures,
                       std::function<void(std::uint8_t)> write, QObject* parent)
    : QObject(parent)
    , m_write(std::move(write)) {
    MakeAddressPointer(page);
    MakeWriteFields(boxes, failures);
}

void BenchTests::MakeAddressPointer(QWidget& page) {
    auto* frame = new QGroupBox("Stuff to Hide in the final release.", &page);
    frame->setObjectName("SSFrame1");
    frame->hide();
    auto* test = new QPushButton("Test SMBus");
    test->setObjectName("SMBusTSTCMD");
    test->setToolTip("Does nothing");
    test->hide();
    auto* caption = new QLabel("Address Pointer");
    caption->setObjectName("AddPTR");
    caption->hide();
    m_pointer = Field("AddrptrTXT", "Address of any register, in hexadecimal");
    m_pointer->installEventFilter(this);
    m_setPointer = UpdateButton("ADDrPTRCMD", "Set the address pointer");

    auto* grid = new QGridLayout(frame);
    grid->addWidget(test, 0, 0, 1, 2);
    grid->addWidget(caption, 1, 0, 1, 2);
    grid->addWidget(m_pointer, 2, 0);
    grid->addWidget(m_setPointer, 2, 1);
    if (auto* pageGrid = qobject_cast<QGridLayout*>(page.layout())) {
        pageGrid->addWidget(frame, pageGrid->rowCount(), 0, Qt::AlignLeft | Qt::AlignBottom);
    }
    connect(m_setPointer, &QPushButton::clicked, this, &BenchTests::SetPointer);
}

void BenchTests::MakeWriteFields(WriteBoxes& boxes, const LinkFailures& failures) {
    m_hex = Field("Text6", "Byte to write, in hexadecimal");
    m_sendHex = UpdateButton("Command4", "Write the hexadecimal byte");
    m_dec = Field("Text7", "Byte to write, in decimal");
    m_sendDec = UpdateButton("Command5", "Write the decimal byte");
    constexpr int row = WriteBoxes::OldWriteFieldsRow;
    QGridLayout& grid = boxes.Grid();
    grid.addWidget(m_sendHex, row, 0);
    grid.addWidget(m_hex, row, 1);
    grid.addWidget(m_sendDec, row, 2);
    grid.addWidget(m_dec, row, 3);

    connect(m_hex, &QLineEdit::textChanged, this,
            [this] { Paint(*m_sendHex, look::BenchChanged); });
    connect(m_dec, &QLineEdit::textChanged, this,
            [this] { Paint(*m_sendDec, look::BenchChanged); });
    connect(m_sendHex, &QPushButton::clicked, this,
            OnLink(failures, [this] { SendHexadecimal(); }));
    connect(m_sendDec, &QPushButton::clicked, this, OnLink(failures, [this] { SendDecimal(); }));
}

bool BenchTests::EntryEnabled() const {
    // Their own state: a window that is disabled as a whole does not change it.
    return m_hex->isEnabledTo(m_hex->parentWidget());
}

void BenchTests::EntryEnabled(bool enabled) {
    m_hex->setEnabled(enabled);
    m_dec->setEnabled(enabled);
    m_sendHex->setEnabled(enabled);
    m_sendDec->setEnabled(enabled);
}

bool BenchTests::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_pointer && event->type() == QEvent::MouseButtonPress) {
        Paint(*m_setPointer, look::BenchChanged);
    }
    return QObject::eventFilter(watched, event);
}

void BenchTests::SetPointer() {
    const auto address = ByteOf(m_pointer->text(), 16);
    if (!address) {
        Paint(*m_setPointer, look::BenchChanged);
        return;
    }
    Paint(*m_setPointer, look::BenchSent);
    Q_EMIT PointerSet(*address);
}

void BenchTests::SendHexadecimal() {
    const QString text = m_hex->text();
    if (LeadingNumber(text, 16) > 0xFF || text == "0" || text.isEmpty()) {
        Refuse(*m_sendHex);
        return;
    }
    if (!IsCapitalHexDigit(text.back()) || !IsCapitalHexDigit(text.front())) {
        m_hex->setText("00");
    }
    if (EntryEnabled()) {
        Send(*m_hex, 16, *m_dec, 10, *m_sendHex);
    }
}

void BenchTests::SendDecimal() {
    const QString text = m_dec->text();
    if (LeadingNumber(text, 10) > 0xFF || text == "0") {
        Refuse(*m_sendDec);
        return;
    }
    const QString looked = text.right(2) + text.left(1);
    if (!std::ranges::all_of(looked, IsDecimalDigit)) {
        m_dec->setText("00");
    }
    if (EntryEnabled()) {
        Send(*m_dec, 10, *m_hex, 16, *m_sendDec);
    }
}

void BenchTests::Refuse(QPushButton& button) {
    m_dec->setText("00");
    m_hex->setText("00");
    Paint(button, look::BenchChanged);
}

void BenchTests::Send(const QLineEdit& field, int base, QLineEdit& other, int otherBase,
                      QPushButton& button) {
    const QString text = field.text().isEmpty() ? QStringLiteral("0") : field.text();
    const auto value = ByteOf(text, base);
    if (!value) {
        // A letter in the middle of a long text, where the look at its ends misses it.
        Refuse(button);
        return;
    }
    m_write(*value);
    other.setText(QString::number(*value, otherBase).toUpper());
    Paint(*m_sendHex, look::BenchSent);
    Paint(*m_sendDec, look::BenchSent);
}

} // namespace tqx
