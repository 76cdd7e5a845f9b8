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

BenchTests::BenchTests(QWidget& page, RegisterEntries& entries, const LinkFailures& failures,
                       std::function<void(std::uint8_t)> write, QObject* parent)
    : QObject(parent)
    , m_write(std::move(write)) {
    MakeAddressPointer(page);
    MakeWriteFields(entries, failures);
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
    m_addrptrTXT = Field("AddrptrTXT", tr("Address of any register, in hexadecimal"));
    m_addrptrTXT->installEventFilter(this);
    m_addrPtrCMD = UpdateButton("ADDrPTRCMD", tr("Set the address pointer"));

    auto* grid = new QGridLayout(frame);
    grid->addWidget(test, 0, 0, 1, 2);
    grid->addWidget(caption, 1, 0, 1, 2);
    grid->addWidget(m_addrptrTXT, 2, 0);
    grid->addWidget(m_addrPtrCMD, 2, 1);
    if (auto* pageGrid = qobject_cast<QGridLayout*>(page.layout())) {
        pageGrid->addWidget(frame, pageGrid->rowCount(), 0, Qt::AlignLeft | Qt::AlignBottom);
    }
    connect(m_addrPtrCMD, &QPushButton::clicked, this, &BenchTests::SetPointer);
}

void BenchTests::MakeWriteFields(RegisterEntries& entries, const LinkFailures& failures) {
    m_text6 = Field("Text6", tr("Byte to write, in hexadecimal"));
    m_command4 = UpdateButton("Command4", tr("Write the hexadecimal byte"));
    m_text7 = Field("Text7", tr("Byte to write, in decimal"));
    m_command5 = UpdateButton("Command5", tr("Write the decimal byte"));
    constexpr int row = RegisterEntries::OldWriteFieldsRow;
    QGridLayout& grid = entries.Grid();
    grid.addWidget(m_command4, row, 0);
    grid.addWidget(m_text6, row, 1);
    grid.addWidget(m_command5, row, 2);
    grid.addWidget(m_text7, row, 3);

    connect(m_text6, &QLineEdit::textChanged, this,
            [this] { Paint(*m_command4, look::BenchChanged); });
    connect(m_text7, &QLineEdit::textChanged, this,
            [this] { Paint(*m_command5, look::BenchChanged); });
    connect(m_command4, &QPushButton::clicked, this,
            OnLink(failures, [this] { SendHexadecimal(); }));
    connect(m_command5, &QPushButton::clicked, this, OnLink(failures, [this] { SendDecimal(); }));
}

bool BenchTests::EntryEnabled() const {
    // Their own state: a window that is disabled as a whole does not change it.
    return m_text6->isEnabledTo(m_text6->parentWidget());
}

void BenchTests::EntryEnabled(bool enabled) {
    m_text6->setEnabled(enabled);
    m_text7->setEnabled(enabled);
    m_command4->setEnabled(enabled);
    m_command5->setEnabled(enabled);
}

bool BenchTests::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_addrptrTXT && event->type() == QEvent::MouseButtonPress) {
        Paint(*m_addrPtrCMD, look::BenchChanged);
    }
    return QObject::eventFilter(watched, event);
}

void BenchTests::SetPointer() {
    const auto address = ByteOf(m_addrptrTXT->text(), 16);
    if (!address) {
        Paint(*m_addrPtrCMD, look::BenchChanged);
        return;
    }
    Paint(*m_addrPtrCMD, look::BenchSent);
    Q_EMIT PointerSet(*address);
}

void BenchTests::SendHexadecimal() {
    const QString text = m_text6->text();
    if (LeadingNumber(text, 16) > 0xFF || text == "0" || text.isEmpty()) {
        Refuse(*m_command4);
        return;
    }
    if (!IsCapitalHexDigit(text.back()) || !IsCapitalHexDigit(text.front())) {
        m_text6->setText("00");
    }
    if (EntryEnabled()) {
        Send(*m_text6, 16, *m_text7, 10, *m_command4);
    }
}

void BenchTests::SendDecimal() {
    const QString text = m_text7->text();
    if (LeadingNumber(text, 10) > 0xFF || text == "0") {
        Refuse(*m_command5);
        return;
    }
    const QString looked = text.right(2) + text.left(1);
    if (!std::ranges::all_of(looked, IsDecimalDigit)) {
        m_text7->setText("00");
    }
    if (EntryEnabled()) {
        Send(*m_text7, 10, *m_text6, 16, *m_command5);
    }
}

void BenchTests::Refuse(QPushButton& button) {
    m_text7->setText("00");
    m_text6->setText("00");
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
    Paint(*m_command4, look::BenchSent);
    Paint(*m_command5, look::BenchSent);
}

} // namespace tqx
