#pragma once

#include <QColor>
#include <QGroupBox>
#include <QLabel>

namespace tqx {

/// `PECOKShape`: a disc that is grey while nothing is known, green with a tick for a good PEC and
/// red with a cross for a bad one.
class PECMark : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor FillColor READ FillColor)

public:
    enum class State { Unknown, Good, Bad };

    explicit PECMark(QWidget* parent = nullptr);

    void Show(State state);
    QColor FillColor() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    State m_state = State::Unknown;
};

/// "PEC Results": whether the last block transfer's PEC was good, in a word and by the mark.
class PECResults : public QGroupBox {
    Q_OBJECT

public:
    explicit PECResults(QWidget* parent = nullptr);

    /// A transfer with PEC is under way.
    void Wait();
    void Show(bool good);
    /// No result any more; the text only says what it is for while a PEC is asked for.
    void Reset(bool usePEC);

private:
    QLabel* m_status;
    PECMark* m_mark;
};

} // namespace tqx
