#include "shell/msg_box_frm.h"

#include <controls/look.h>

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tqx {
namespace {

constexpr int TextWidth = 95 * look::Grid;

} // namespace

MsgBoxFRM::MsgBoxFRM(QWidget* parent)
    : QDialog(parent)
    , m_message(new QLabel)
    , m_ok(new QPushButton(tr("OK")))
    , m_cancel(new QPushButton(tr("Cancel"))) {
    setObjectName("MsgBoxFRM");
    setWindowTitle(tr("Message Box"));
    m_message->setObjectName("MessageLBL");
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setMinimumWidth(TextWidth);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_ok->setObjectName("OKCMD");
    m_ok->setDefault(true);
    m_cancel->setObjectName("CancelCMD");

    auto* buttons = new QDialogButtonBox;
    buttons->addButton(m_ok, QDialogButtonBox::ActionRole);
    buttons->addButton(m_cancel, QDialogButtonBox::ActionRole);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(5 * look::Grid, 5 * look::Grid, 5 * look::Grid, 4 * look::Grid);
    layout->setSpacing(5 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_message);
    layout->addWidget(buttons);

    connect(m_ok, &QPushButton::clicked, this, [this] { Answer(1); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { Answer(0); });
}

void MsgBoxFRM::SetUp(const QString& title, const QString& message, bool okOnly) {
    m_cancel->setEnabled(!okOnly);
    m_cancel->setVisible(!okOnly);
    setWindowTitle(title);
    m_message->setText(message);
    setAccessibleDescription(message);
    m_ok->setFocus();
}

void MsgBoxFRM::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Answer(m_cancel->isEnabled() ? 0 : 1);
        return;
    }
    QDialog::keyPressEvent(event);
}

void MsgBoxFRM::Answer(std::uint8_t response) {
    Q_EMIT UserResponse(response);
    hide();
}

} // namespace tqx
