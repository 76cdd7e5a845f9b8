#pragma once

#include "console/message_door.h"
#include "console/random_fill.h"

#include <QWidget>

#include <memory>

class QGroupBox;
class QPushButton;

namespace tqx {

struct Bench;
class BlockFrame;
class BlockGrid;
class BlockStart;
class BlockTransfer;
class PECResults;

/// The block panel, `BlockReadCRCPanel`: moves blocks of up to 32 bytes between the chip and the
/// screen, to or from the registers or the EEPROM, and shows their PEC byte by byte.
///
/// It keeps nothing between clicks but what its controls show. While a transfer runs its buttons
/// are disabled; a failed link call leaves them so until Recover is called.
class BlockPanel : public QWidget {
    Q_OBJECT

public:
    /// `message`: the application's message box.
    BlockPanel(Bench& bench, MessageDoor message, QWidget* parent = nullptr);
    ~BlockPanel() override;

    /// Its part of the main window's load: `EraseEPROMCMD` stays usable only while the link starts
    /// on the printer port, and the list of high bytes stands on its first row.
    void Load();
    /// The panel comes on view: shows the chip's slave address.
    void Enter();
    /// After the user was told of a link error: the transfer that it ended is over.
    void Recover();

Q_SIGNALS:
    void EraseEEPROMWanted();
    void EEPROMComsWanted();
    void CloseAllEEPROMWanted();

private:
    QPushButton* Button(const QString& name, const QString& caption, const QString& tooltip);
    QGroupBox* MakeRegisterAccess();
    QGroupBox* MakeBlockReadWrite();
    QGroupBox* MakeCommunications();
    QGroupBox* MakeUsefulFunctions();
    QGroupBox* MakeCleanUpDisplay();
    void MakeLayout();
    void Connect();

    /// Runs a transfer for its button, which keeps the keyboard focus that it loses while disabled.
    void Run(QPushButton* button, void (BlockTransfer::*transfer)());
    void GiveFocusBack();
    void UsePECClicked(bool use);
    void RandomDataFill();
    void ReadDataFill();

    Bench& m_bench;
    MessageDoor m_message;
    UnseededRandom m_random;

    BlockGrid* m_grid;
    BlockFrame* m_frame;
    BlockStart* m_start;
    PECResults* m_results;
    QPushButton* m_eraseEPROM = nullptr;
    QPushButton* m_blockWrite = nullptr;
    QPushButton* m_blockRead = nullptr;
    /// The button of the transfer under way, while it has no focus for being disabled.
    QPushButton* m_lostFocus = nullptr;
    std::unique_ptr<BlockTransfer> m_transfer;
};

} // namespace tqx
