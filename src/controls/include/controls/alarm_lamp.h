#pragma once

#include "controls/left_click.h"

#include <QWidget>

namespace tqx {

/// A two-state lamp on a dark display: a small ring while dark, a filled triangle with an
/// exclamation mark while lit, so that the state does not hang on the colour alone.
///
/// It takes the keyboard only when its owner gives it a focus policy.
class AlarmLamp : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool Value READ Value WRITE Value)

public:
    explicit AlarmLamp(QWidget* parent = nullptr);

    /// True is lit.
    bool Value() const { return m_value; }

    void Value(bool lit);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Left button, Enter or Space. A click changes nothing on the lamp.
    void Clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_value = false;
    LeftClick m_click;
};

} // namespace tqx
