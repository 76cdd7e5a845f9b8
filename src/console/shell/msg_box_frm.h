#pragma once

#include <QDialog>

#include <cstdint>

class QLabel;
class QPushButton;

namespace tqx {

/// The application's message box. A click on OK or Cancel raises UserResponse and hides the box;
/// its own close control hides it without an answer. Escape is Cancel, or OK where OK is all.
class MsgBoxFRM : public QDialog {
    Q_OBJECT

public:
    explicit MsgBoxFRM(QWidget* parent = nullptr);

    /// Sets title and text, and whether Cancel can be pressed.
    void SetUp(const QString& title, const QString& message, bool okOnly);

Q_SIGNALS:
    /// 1 for OK, 0 for Cancel.
    void UserResponse(std::uint8_t response);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Answer(std::uint8_t response);

    QLabel* m_message;
    QPushButton* m_ok;
    QPushButton* m_cancel;
};

} // namespace tqx
