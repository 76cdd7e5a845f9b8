#pragma once

#include <QLineEdit>
#include <QString>

namespace tqx {

/// An entry box for one number, in hexadecimal or decimal.
///
/// It hands over its text on Enter alone, never when it merely loses the focus. Escape brings back
/// the text that was confirmed or set by program last; so does leaving the box empty, which would
/// count as 0 unseen.
/// The user can type, paste and drop only digits of the base, and only what is a byte; the program
/// may set any text.
class NumberEntry : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(Base numberbase READ numberbase WRITE numberbase)
    Q_PROPERTY(QString Text READ text WRITE Put)
    Q_PROPERTY(unsigned Value READ Value WRITE Value)

public:
    enum Base { Decimal = 2, Hexadecimal = 4 };
    Q_ENUM(Base)

    explicit NumberEntry(QWidget* parent = nullptr);
    explicit NumberEntry(Base base, QWidget* parent = nullptr);

    Base numberbase() const { return m_base; }
    void numberbase(Base base);

    /// Shows `text`, which Escape and an empty box come back to.
    void Put(const QString& text);

    /// The text as a number of the base; 0 when it is none. Set, it is shown in capitals without
    /// leading zeros.
    unsigned Value() const;
    void Value(unsigned value);

    /// Room for the digits that can be typed and the cursor.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Enter was pressed on a number, which is handed over as the box shows it.
    void EntryConfirmed(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    class Digits;

    bool IsTypable(const QString& digits) const;
    void Confirm();

    Base m_base;
    QString m_standing;   // confirmed or set by program last
    QString m_beforeEdit; // what an edit under way started from
    bool m_selectOnRelease = false;
};

} // namespace tqx
