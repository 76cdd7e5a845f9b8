#pragma once

#include <controls/system_dialogs.h>

#include <QTemporaryDir>

namespace tqx {

/// The system's dialogs, but for the save dialog: it answers with a file that is gone after the
/// tour, so that the tour leaves nothing in the user's folders.
class TourDialogs : public DesktopDialogs {
public:
    QString SaveFileName(QWidget* /*parent*/, const QString& /*title*/,
                         const QString& /*suggested*/, const QString& /*filter*/) override {
        return DumpFile();
    }

    QString DumpFile() const { return m_folder.filePath("RegisterDump.txt"); }

private:
    QTemporaryDir m_folder;
};

} // namespace tqx
