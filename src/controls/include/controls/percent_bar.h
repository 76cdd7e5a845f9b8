#pragma once

#include <QProgressBar>

namespace tqx {

/// A progress bar from 0 to `Maximum` that shows the share done in percent with one decimal,
/// as in "62.5 %".
class PercentBar : public QProgressBar {
    Q_OBJECT
    Q_PROPERTY(int Value READ value WRITE StandAt)
    Q_PROPERTY(int Maximum READ maximum WRITE EndAt)

public:
    explicit PercentBar(QWidget* parent = nullptr);

    /// Steps done, 0 to `Maximum`; a number beyond either end stands at that end.
    void StandAt(int steps);

    /// Steps in all, at least 1.
    void EndAt(int steps);

    QString text() const override;
};

} // namespace tqx
