#include "controls/system_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace tqx {

void DesktopDialogs::Message(QWidget* parent, Icon icon, const QString& title,
                             const QString& text) {
    QMessageBox box(parent);
    box.setIcon(icon == Icon::CriticalStop  ? QMessageBox::Critical
                : icon == Icon::Exclamation ? QMessageBox::Warning
                                            : QMessageBox::NoIcon);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setStandardButtons(QMessageBox::Ok);
    if (parent != nullptr) {
        box.setWindowModality(Qt::WindowModal); // a window that is none of the console's goes on
    }
    box.exec();
}

QString DesktopDialogs::SaveFileName(QWidget* parent, const QString& title,
                                     const QString& suggested, const QString& filter) {
    return QFileDialog::getSaveFileName(parent, title, suggested, filter, nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

QString DesktopDialogs::NewFileName(QWidget* parent, const QString& title, const QString& suggested,
                                    const QString& filter) {
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QFileInfo(suggested).suffix());
    dialog.selectFile(suggested);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace tqx
