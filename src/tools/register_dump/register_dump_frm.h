#pragma once

#include "tool_window.h"

#include <console/message_door.h>
#include <jobs/register_dump.h>

#include <functional>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace tqx {

struct Bench;
class PercentBar;
class SystemDialogs;

/// The register dump: appends all registers and the whole EEPROM to a text file.
///
/// The caller stops the monitor first. A close during a dump stops it, with the file closed.
/// Failures of the file and of the link end no dump; the status line tells them afterwards.
class RegisterDumpFRM : public ToolWindow, private DumpDoor {
    Q_OBJECT

public:
    RegisterDumpFRM(Bench& bench, MessageDoor door, SystemDialogs& dialogs);

    /// `enable`: a dump can be set up and started; otherwise one runs and can be stopped.
    void SetDumpControlsEnabled(bool enable);

    /// Gives the times of the headings; the wall clock unless it is replaced.
    std::function<DumpStamp()> Clock = &DumpStamp::Now;

protected:
    void AskToStop() override;

private:
    void MakeLayout();
    QGroupBox* MakeRAM();
    QGroupBox* MakeEEPROM();
    QGroupBox* MakeTarget();

    void Browse();
    void Dump();
    void ShowPath();
    void RefuseName();
    void Status(const QString& text, bool bad);
    void ShowOutcome(const DumpOutcome& outcome, const QString& place);

    void RowWritten() override;
    void ServeEvents() override;
    bool StopRequested() override;

    Bench& m_bench;
    MessageDoor m_door;
    SystemDialogs& m_dialogs;
    QString m_dumpPath;
    QString m_dialogName; // what the save dialog has stood on last
    bool m_stopRequested = false;

    QCheckBox* m_ram = nullptr;
    QCheckBox* m_eeprom = nullptr;
    QLabel* m_path = nullptr;
    QPushButton* m_browse = nullptr;
    QPushButton* m_dump = nullptr;
    QPushButton* m_stop = nullptr;
    PercentBar* m_progress = nullptr;
    QLabel* m_status = nullptr;
};

} // namespace tqx
