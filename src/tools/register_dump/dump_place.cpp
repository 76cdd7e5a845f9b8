#include "register_dump/dump_place.h"

#include <QStandardPaths>

namespace tqx {

QString PlaceOfDump(const QString& dumpPath) {
#ifndef Q_OS_WIN
    const QLatin1String drive("C:\\");
    if (dumpPath.startsWith(drive)) {
        const QString inside = dumpPath.mid(drive.size()).replace('\\', '/');
        return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + '/' + inside;
    }
#endif
    return dumpPath;
}

} // namespace tqx
