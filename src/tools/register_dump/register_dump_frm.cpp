#include "register_dump/register_dump_frm.h"

#include "register_dump/dump_place.h"

#include <controls/look.h>
#include <controls/percent_bar.h>
#include <controls/system_dialogs.h>
#include <device/bench.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>

#include <utility>

namespace tqx {
namespace {

constexpr QLatin1String FileName("RegisterDump.txt");
constexpr QLatin1String FileEnding(".txt");

/// The documents folder that "C:\" stands for need not be there yet on a fresh account.
void MakeDocumentsFolder(const QString& dumpPath) {
    const QString place = PlaceOfDump(dumpPath);
    if (place != dumpPath) {
        QDir().mkpath(QFileInfo(place).path());
    }
}

} // namespace

RegisterDumpFRM::RegisterDumpFRM(Bench& bench, MessageDoor door, SystemDialogs& dialogs)
    : ToolWindow("RegisterDumpFRM", "Register Dump")
    , m_bench(bench)
    , m_door(std::move(door))
    , m_dialogs(dialogs)
    , m_dumpPath(DefaultDumpPath)
    , m_dialogName(FileName) {
    MakeLayout();
    ShowPath();
}

void RegisterDumpFRM::SetDumpControlsEnabled(bool enable) {
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_ram, m_eeprom, m_dump, m_browse, m_path}) {
        control->setEnabled(enable);
    }
    m_stop->setEnabled(!enable);
    (enable ? m_dump : m_stop)->setFocus();
}

void RegisterDumpFRM::AskToStop() {
    m_stopRequested = true;
}

void RegisterDumpFRM::Browse() {
    const Yielding yielding(*this);
    const QString suggested =
        m_dialogName == FileName ? PlaceOfDump(DefaultDumpPath) : m_dialogName;
    const QString chosen =
        m_dialogs.SaveFileName(this, "Register Dump", suggested, "Text Files (*.txt)");
    if (!chosen.isEmpty()) {
        m_dialogName = chosen;
    }
    m_dumpPath = m_dialogName;
    if (m_dumpPath == FileName) {
        m_dumpPath = DefaultDumpPath;
    }
    if (!m_dumpPath.endsWith(FileEnding)) {
        RefuseName();
    }
    ShowPath();
}

void RegisterDumpFRM::Dump() {
    const Yielding yielding(*this);
    const DumpChoice choice{m_ram->isChecked(), m_eeprom->isChecked()};
    if (choice.Rows() == 0) {
        m_door("Notice",
               "Either the Dump RAM or Dump EEPROM check box must be selected to do a register "
               "dump",
               1);
        return;
    }
    m_stopRequested = Unloading();
    SetDumpControlsEnabled(false);
    const auto end = qScopeGuard([this] { SetDumpControlsEnabled(true); });
    RegisterDump dump(m_bench.Link, *this);
    dump.Clock = Clock;
    m_progress->StandAt(0);
    m_progress->EndAt(choice.Rows());
    if (!m_dumpPath.endsWith(FileEnding)) {
        RefuseName();
        return;
    }
    Status("Dumping ...", false);
    MakeDocumentsFolder(m_dumpPath);
    const QString place = PlaceOfDump(m_dumpPath);
    const DumpOutcome outcome = dump.Run(choice, QFile::encodeName(place).toStdString());
    if (outcome.Finished) {
        m_progress->StandAt(0);
    }
    ShowOutcome(outcome, place);
}

void RegisterDumpFRM::ShowPath() {
    m_path->setText("Path; " + m_dumpPath);
    QString place = m_dumpPath.isEmpty()
                        ? QStringLiteral("No file is chosen.")
                        : QStringLiteral("Dumps are added to %1.").arg(PlaceOfDump(m_dumpPath));
    m_path->setToolTip(place);
    if (m_bench.Bus.BusCell.ComsMedium != ComsPrinterPort) {
        place += QStringLiteral(" They read the printer port, not the chosen chip.");
    }
    Status(place, false);
}

void RegisterDumpFRM::RefuseName() {
    m_dialogs.Message(this, SystemDialogs::Icon::Exclamation, "There was a Problem!",
                      "Invalid filename.");
    m_dumpPath.clear();
}

void RegisterDumpFRM::Status(const QString& text, bool bad) {
    look::SetInk(*m_status, bad ? look::DarkRedInk : look::QuietInk);
    m_status->setText(text);
    m_status->setToolTip(text);
}

void RegisterDumpFRM::ShowOutcome(const DumpOutcome& outcome, const QString& place) {
    QString text;
    if (outcome.FileFailure.empty()) {
        text = QString(outcome.Finished ? "Dump added to %1." : "Dump stopped; see the end of %1.")
                   .arg(place);
    } else {
        text = QString(outcome.ReachedDisk ? "Only a part of the dump reached the disk: %1: %2."
                                           : "Nothing reached the disk: %1: %2.")
                   .arg(place, QString::fromStdString(outcome.FileFailure));
    }
    if (outcome.FailedReads > 0) {
        text += QStringLiteral(" %1 bytes could not be read and were written as FF: %2.")
                    .arg(QString::number(outcome.FailedReads),
                         QString::fromStdString(outcome.LinkFailure));
    }
    Status(text, !outcome.FileFailure.empty() || outcome.FailedReads > 0);
}

void RegisterDumpFRM::RowWritten() {
    m_progress->StandAt(m_progress->value() + 1);
}

void RegisterDumpFRM::ServeEvents() {
    QCoreApplication::processEvents();
}

bool RegisterDumpFRM::StopRequested() {
    return m_stopRequested;
}

} // namespace tqx
