#include "shell/msg_box_frm.h"

#include "console/message_door.h"

#include <controls/look.h>
#include <link/link_error.h>

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tqx {
namespace {

constexpr int TextWidth = 95 * look::Grid;

} // namespace

LinkFailureNotice NoticeOf(const LinkError& error) {
    QString text = QString::fromUtf8(error.what());
    if (!error.Advice().empty()) {
        text += "\n\n" + QString::fromStdString(error.Advice());
    }
    return {.Title = "The link to the TQX7716 failed", .Text = text};
}

MsgBoxFRM::MsgBoxFRM(QWidget* parent)
    : QDialog(parent)
    , m_message(new QLabel)
    , m_ok(new QPushButton("OK"))
    , m_cancel(new QPushButton("Cancel")) {
    setObjectName("MsgBoxFRM");
    setWindowTitle("Message Box");
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
