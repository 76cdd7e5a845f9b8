#pragma once

#include <device/on_link.h>

#include <QLineEdit>
#include <QObject>
#include <QPushButton>

#include <cstdint>
#include <functional>

namespace tqx {

class WriteBoxes;

/// Two groups of bench controls that are created hidden and that nothing shows: an address pointer
/// that reaches every register, and an older pair of write fields.
///
/// A button is green when the field beside it has been sent, red when it was changed since or was
/// refused. What the program takes from all this is EntryEnabled, whose home is the enabled state
/// of `Text6`, `Text7`, `Command4` and `Command5`.
class BenchTests : public QObject {
    Q_OBJECT

public:
    /// Puts the address pointer on `page` and the write fields under the boxes of `boxes`.
    /// `write` sends a byte to the selected register.
    BenchTests(QWidget& page, WriteBoxes& boxes, const LinkFailures& failures,
               std::function<void(std::uint8_t)> write, QObject* parent);

    /// The Entry flag of the register displayed last. True at start.
    bool EntryEnabled() const;
    void EntryEnabled(bool enabled);

Q_SIGNALS:
    /// The address pointer was set. Nothing is read or written for it.
    void PointerSet(std::uint8_t address);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeAddressPointer(QWidget& page);
    void MakeWriteFields(WriteBoxes& boxes, const LinkFailures& failures);

    void SetPointer();
    void SendHexadecimal();
    void SendDecimal();
    void Refuse(QPushButton& button);
    /// Sends `text` of `field`, shows the number in `other`, written in `otherBase`.
    void Send(const QLineEdit& field, int base, QLineEdit& other, int otherBase,
              QPushButton& button);

    std::function<void(std::uint8_t)> m_write;
    QLineEdit* m_pointer = nullptr;
    QPushButton* m_setPointer = nullptr;
    QLineEdit* m_hex = nullptr;
    QLineEdit* m_dec = nullptr;
    QPushButton* m_sendHex = nullptr;
    QPushButton* m_sendDec = nullptr;
};

} // namespace tqx
