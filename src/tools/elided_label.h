#pragma once

#include <QLabel>

namespace tqx {

/// A label of one line that takes what room there is and leaves out the middle of a long text.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tqx
