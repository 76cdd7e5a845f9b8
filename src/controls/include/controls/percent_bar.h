#pragma once

#include <QProgressBar>

namespace tqx {

/// A progress bar from 0 to `Maximum` that shows the share done in percent with one decimal,
/// as in "62.5 %".
class PercentBar : public QProgressBar {
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE Value)
    Q_PROPERTY(int Maximum READ Maximum WRITE Maximum)

public:
    explicit PercentBar(QWidget* parent = nullptr);

    /// Steps done, 0 to `Maximum`; a value beyond either end stands at that end.
    int Value() const { return value(); }

    void Value(int steps);

    /// Steps in all, at least 1.
    int Maximum() const { return maximum(); }

    void Maximum(int steps);

    QString text() const override;
};

} // namespace tqx
