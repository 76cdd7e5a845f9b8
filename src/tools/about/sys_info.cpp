#include "tools/sys_info.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <array>
#include <exception>

namespace tqx {
namespace {

struct KnownProgram {
    const char* Name;
    const char* Argument; // null where it takes none
};

/// In the order in which they are looked for.
constexpr std::array<KnownProgram, 6> KnownPrograms{{
    {"kinfocenter", nullptr},
    {"hardinfo2", nullptr},
    {"hardinfo", nullptr},
    {"gnome-control-center", "info-overview"},
    {"cinnamon-settings", "info"},
    {"mate-system-monitor", "--show-system-tab"},
}};

/// The program that the registry names, empty when it names none.
QString RegisteredProgram(SysInfoHost& host, SystemRegistry& registry) {
    std::string path;
    if (GetKeyValue(registry, LocalMachine, R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH",
                    path) &&
        !path.empty()) {
        return QString::fromStdString(path);
    }
    std::string folder;
    if (GetKeyValue(registry, LocalMachine, R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO",
                    folder) &&
        !folder.empty()) {
        QString file = QString::fromStdString(folder) + R"(\MSINFO32.EXE)";
        if (host.FileExists(file)) {
            return file;
        }
    }
    return {};
}

QStringList SysInfoProgram(SysInfoHost& host) {
    SystemRegistry* registry = host.Registry();
    if (registry == nullptr) {
        return host.DesktopProgram();
    }
    const QString registered = RegisteredProgram(host, *registry);
    return registered.isEmpty() ? QStringList() : QStringList(registered);
}

/// Whatever goes wrong on the way, the program is not there for the user.
bool FindAndStart(SysInfoHost& host) {
    try {
        const QStringList program = SysInfoProgram(host);
        return !program.isEmpty() && host.Start(program);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

bool DesktopSysInfoHost::FileExists(const QString& path) {
    return QFile::exists(path);
}

QStringList DesktopSysInfoHost::DesktopProgram() {
    for (const KnownProgram& known : KnownPrograms) {
        const QString path = QStandardPaths::findExecutable(known.Name);
        if (!path.isEmpty()) {
            return known.Argument == nullptr ? QStringList(path)
                                             : QStringList{path, known.Argument};
        }
    }
    return {};
}

bool DesktopSysInfoHost::Start(const QStringList& program) {
    return QProcess::startDetached(program.front(), program.mid(1));
}

void StartSysInfo(SysInfoHost& host, const MessageDoor& door) {
    if (!FindAndStart(host)) {
        door("Information", "System Information Is Unavailable At This Time", 1);
    }
}

} // namespace tqx
