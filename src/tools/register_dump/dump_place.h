#pragma once

#include <QString>

namespace tqx {

/// Where a dump goes that has been given no other name.
inline constexpr QLatin1String DefaultDumpPath("C:\\RegisterDump.txt");

/// Where on this machine the dump file `dumpPath` lies. On a system without drive letters a leading
/// "C:\" stands for the user's documents folder; every other path is itself.
QString PlaceOfDump(const QString& dumpPath);

} // namespace tqx
