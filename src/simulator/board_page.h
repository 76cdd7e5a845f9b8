#pragma once

#include <QWidget>

namespace tqx {

/// A page of the board's window.
class BoardPage : public QWidget {
public:
    using QWidget::QWidget;

    /// Shows how the board stands at this moment. Called a few times a second while on view.
    virtual void Refresh() {}
};

} // namespace tqx
