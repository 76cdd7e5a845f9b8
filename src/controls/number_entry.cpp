#include "controls/number_entry.h"

#include "controls/look.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QValidator>

#include <algorithm>

namespace tqx {
namespace {

constexpr unsigned LargestByte = 0xFF;
constexpr int HintedCharacters = 17; // what QLineEdit's own size hint makes room for

int Radix(NumberEntry::Base base) {
    return base == NumberEntry::Decimal ? 10 : 16;
}

int DigitsOfByte(NumberEntry::Base base) {
    return base == NumberEntry::Decimal ? 3 : 2;
}

bool IsDigit(QChar character, NumberEntry::Base base) {
    const ushort code = character.unicode();
    return (code >= '0' && code <= '9') ||
           (base == NumberEntry::Hexadecimal && code >= 'A' && code <= 'F');
}

/// Removes what is no digit of `base` from `text`, digits in capitals, and keeps the cursor
/// `position` between the characters where it was.
void KeepDigits(QString& text, int& position, NumberEntry::Base base) {
    QString kept;
    int before = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text[i].toUpper();
        if (IsDigit(character, base)) {
            kept += character;
            before += i < position ? 1 : 0;
        }
    }
    text = kept;
    position = before;
}

} // namespace

/// Lets an edit by the user pass, mends it, or refuses it.
class NumberEntry::Digits : public QValidator {
public:
    explicit Digits(NumberEntry& entry)
        : QValidator(&entry)
        , m_entry(entry) {}

    State validate(QString& text, int& position) const override {
        if (text == m_entry.m_standing) {
            return text.isEmpty() ? Intermediate : Acceptable;
        }
        KeepDigits(text, position, m_entry.m_base);
        while (!m_entry.IsTypable(text) && text.startsWith('0')) {
            text.remove(0, 1);
            position = std::max(position - 1, 0);
        }
        if (m_entry.IsTypable(text)) {
            return text.isEmpty() ? Intermediate : Acceptable;
        }
        // A long text that the program has set can be shortened digit by digit.
        return text.size() < m_entry.m_beforeEdit.size() ? Intermediate : Invalid;
    }

private:
    NumberEntry& m_entry;
};

NumberEntry::NumberEntry(QWidget* parent)
    : NumberEntry(Hexadecimal, parent) {}

NumberEntry::NumberEntry(Base base, QWidget* parent)
    : QLineEdit(parent)
    , m_base(base) {
    setFont(look::NumbersFont());
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setValidator(new Digits(*this));
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_beforeEdit = text; });
}

void NumberEntry::numberbase(Base base) {
    m_base = base;
    updateGeometry();
}

void NumberEntry::Put(const QString& text) {
    m_standing = text;
    setText(text);
}

unsigned NumberEntry::Value() const {
    return text().toUInt(nullptr, Radix(m_base));
}

void NumberEntry::Value(unsigned value) {
    Put(QString::number(value, Radix(m_base)).toUpper());
}

QSize NumberEntry::sizeHint() const {
    QSize hint = QLineEdit::sizeHint();
    hint.rwidth() +=
        (DigitsOfByte(m_base) + 1 - HintedCharacters) * fontMetrics().horizontalAdvance('x');
    return hint;
}

QSize NumberEntry::minimumSizeHint() const {
    return sizeHint();
}

void NumberEntry::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Confirm();
        break;
    case Qt::Key_Escape:
        if (text() == m_standing) {
            event->ignore(); // nothing to take back: the window may close on it
            return;
        }
        setText(m_standing);
        selectAll();
        break;
    default:
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
}

void NumberEntry::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
}

void NumberEntry::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    const bool comesBack = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
    if (!comesBack && text().isEmpty()) {
        setText(m_standing);
    }
}

void NumberEntry::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // The click that comes to the box selects the number, so that typing replaces it.
    if (m_selectOnRelease && !hasSelectedText()) {
        selectAll();
    }
    m_selectOnRelease = false;
}

bool NumberEntry::IsTypable(const QString& digits) const {
    return digits.isEmpty() || (digits.size() <= DigitsOfByte(m_base) &&
                                digits.toUInt(nullptr, Radix(m_base)) <= LargestByte);
}

void NumberEntry::Confirm() {
    if (isReadOnly() || !hasAcceptableInput()) {
        return;
    }
    const QString confirmed = text();
    m_standing = confirmed;
    selectAll();
    Q_EMIT EntryConfirmed(confirmed);
}

} // namespace tqx
