#include "blocks/byte_entry.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

namespace tqx {

BlockByteEntry::BlockByteEntry(QWidget* parent)
    : NumberEntry(Hexadecimal, parent) {}

void BlockByteEntry::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        PasteClipboard();
        return;
    }
    NumberEntry::keyPressEvent(event);
}

void BlockByteEntry::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* paste = menu->findChild<QAction*>("edit-paste")) {
        paste->disconnect();
        connect(paste, &QAction::triggered, this, &BlockByteEntry::PasteClipboard);
    }
    menu->popup(event->globalPos());
}

void BlockByteEntry::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    Q_EMIT Pasted(event->mimeData()->text());
}

void BlockByteEntry::PasteClipboard() {
    Q_EMIT Pasted(QGuiApplication::clipboard()->text());
}

} // namespace tqx
