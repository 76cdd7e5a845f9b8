#pragma once

#include <controls/system_dialogs.h>

#include <QDir>
#include <QTemporaryDir>

namespace tqx {

/// The system's dialogs, but for the save dialog: it answers with a file in the working folder,
/// which is one that is gone after the tour, so that the tour leaves nothing in the user's folders
/// and shows the same name each time.
class TourDialogs : public DesktopDialogs {
public:
    TourDialogs() { QDir::setCurrent(m_folder.path()); }

    ~TourDialogs() override { QDir::setCurrent(m_before); }

    TourDialogs(const TourDialogs&) = delete;
    TourDialogs& operator=(const TourDialogs&) = delete;

    QString SaveFileName(QWidget* /*parent*/, const QString& /*title*/,
                         const QString& /*suggested*/, const QString& /*filter*/) override {
        return DumpFile();
    }

    static QString DumpFile() { return QStringLiteral("BenchDump.txt"); }

private:
    QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};

} // namespace tqx
