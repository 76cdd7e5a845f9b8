#pragma once

#include "tools/system_registry.h"

#include <console/message_door.h>

#include <QString>
#include <QStringList>

namespace tqx {

/// What the search for a system information program needs of the machine.
class SysInfoHost {
public:
    virtual ~SysInfoHost() = default;

    /// Null where the system has no registry.
    virtual SystemRegistry* Registry() = 0;
    virtual bool FileExists(const QString& path) = 0;
    /// The program of the desktop that shows the system's facts, with its arguments; empty when
    /// none is installed.
    virtual QStringList DesktopProgram() = 0;
    /// Starts a program as a normal window, and does not wait for it. False when it could not.
    virtual bool Start(const QStringList& program) = 0;
};

/// The machine at hand: no registry, and the desktop's own programs.
class DesktopSysInfoHost : public SysInfoHost {
public:
    SystemRegistry* Registry() override { return nullptr; }

    bool FileExists(const QString& path) override;
    QStringList DesktopProgram() override;
    bool Start(const QStringList& program) override;
};

/// Finds the system information program and starts it, or tells the user that there is none.
///
/// Where there is a registry it names the program: in the first of two keys by its path, which is
/// taken unchecked, in the second by the folder in which it is looked for. Elsewhere it is the
/// desktop's own.
void StartSysInfo(SysInfoHost& host, const MessageDoor& door);

} // namespace tqx
