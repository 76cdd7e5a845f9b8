#pragma once

#include "console/message_door.h"

#include <link/link_server.h>

class QPushButton;

namespace tqx {

struct Bench;
class BlockFrame;
class BlockGrid;
class BlockStart;
class PECResults;

/// What a block transfer reads from the panel and shows on it.
struct BlockControls {
    QPushButton& ReadButton;
    QPushButton& WriteButton;
    BlockGrid& Grid;
    BlockFrame& Frame;
    BlockStart& Start;
    PECResults& Results;
};

/// One block read or block write, step by step, as a click on its button does it. It always goes to
/// the board's bus, whatever medium the chip was found on.
///
/// Errors of the link pass through and nothing here unwinds them: the buttons then stay disabled,
/// and ByteDelay and BurstMode keep their values, until MainForm::LinkFailed sees to them.
class BlockTransfer {
public:
    BlockTransfer(Bench& bench, MessageDoor message, const BlockControls& controls);

    /// Always 32 bytes.
    void Read();
    /// As many bytes as the byte count says, 1 to 32. Refused with a message while the chip's
    /// write-protect bit is set; an EEPROM target goes back to read mode then too, which clears
    /// the bit.
    void Write();

    /// Takes a byte count as it was typed: more than a block holds becomes a whole block.
    void EnterByteCount(const QString& text);

private:
    void ClearBlockDisplay();
    void ResetReadColumns();
    /// Moves the chip's address pointer to the start of the block.
    void SetBlockStart();
    /// False when the chip's count was not that of a whole block: the link has said so and broken
    /// the read off, and still holds an earlier block with its PEC, which must not be shown as this
    /// one's.
    bool ReceiveBlock();
    void WriteEEPROMMode(std::uint8_t mode);
    bool WriteProtected();
    void KeepByteCountInBlock();
    WriteBlock MakeFrame() const;
    void SendBlock();
    void ShowReadPEC();
    void ShowWritePEC();

    BoardBus& Bus();

    Bench& m_bench;
    MessageDoor m_message;
    BlockControls m_panel;
};

} // namespace tqx
