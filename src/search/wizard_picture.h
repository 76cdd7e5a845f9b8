#pragma once

#include <QWidget>

namespace tqx {

/// The picture at the side of the wizard: a chip on a bus. Decoration only.
class WizardPicture : public QWidget {
public:
    explicit WizardPicture(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tqx
