#pragma once

#include <controls/system_dialogs.h>

#include <QStringList>

namespace tqx::test {

/// Dialogs that answer themselves: messages are written down as "icon|title|text", and the save
/// dialog gives FileName.
class AnsweredDialogs : public SystemDialogs {
public:
    QStringList Messages;
    /// What the user chooses in the save dialog; empty: Cancel.
    QString FileName;
    /// The name that the save dialog stood on when it came up last.
    QString Suggested;

    void Message(QWidget* /*parent*/, Icon icon, const QString& title,
                 const QString& text) override {
        const char* name = icon == Icon::CriticalStop  ? "critical"
                           : icon == Icon::Exclamation ? "exclamation"
                                                       : "none";
        Messages << QStringLiteral("%1|%2|%3").arg(name, title, text);
    }

    QString SaveFileName(QWidget* /*parent*/, const QString& /*title*/, const QString& suggested,
                         const QString& /*filter*/) override {
        Suggested = suggested;
        return FileName;
    }

    QString NewFileName(QWidget* parent, const QString& title, const QString& suggested,
                        const QString& filter) override {
        return SaveFileName(parent, title, suggested, filter);
    }
};

} // namespace tqx::test
