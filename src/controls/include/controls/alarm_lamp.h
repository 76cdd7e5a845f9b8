#pragma once

#include <QAbstractButton>

namespace tqx {

/// A two-state lamp on a dark display: a small ring while dark, a filled triangle with an
/// exclamation mark while lit, so that the state does not hang on the colour alone.
///
/// A click changes nothing on the lamp. The keyboard does not come to it.
class AlarmLamp : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(bool Value READ Value WRITE Value)

public:
    explicit AlarmLamp(QWidget* parent = nullptr);

    /// True is lit.
    bool Value() const { return m_value; }
    void Value(bool lit);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_value = false;
};

} // namespace tqx
