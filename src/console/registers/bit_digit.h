#pragma once

#include <QAbstractButton>
#include <QString>

namespace tqx {

/// One bit of the register on view, shown as "1" or "0" (empty before the first reading) on a dark
/// display. A left click, Space or Enter asks for it to be flipped; it never flips by itself.
class BitDigit : public QAbstractButton {
    Q_OBJECT

public:
    /// `bit`: its number, 0 to 7.
    explicit BitDigit(int bit, QWidget* parent = nullptr);

    QString Caption() const { return m_caption; }

    /// Takes the text and says it to a screen reader together with the bit's legend.
    void Caption(const QString& caption);
    void Legend(const QString& legend);

    bool IsOne() const { return m_caption == "1"; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void MouseMoved();
    void MouseLeft();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Announce();

    int m_bit;
    QString m_legend;
    QString m_caption;
};

} // namespace tqx
