#pragma once

#include <console/message_door.h>
#include <link/link_new_com_port.h>

#include <cstdint>

namespace tqx {

/// The EEPROM's modes, which the mode bits of register "EEPROM 3" (13h) select. Each change reads
/// the register and writes it back with the bits that it does not name kept, through BusCell.
///
/// Where the EEPROM is to be changed and the chip's write protect bit is set, the user is warned,
/// and the mode is selected all the same. The warning yields to the event loop.
class EEPROMModes {
public:
    EEPROMModes(LinkNewComPort& bus, MessageDoor door);

    void SelectReadMode();
    void SelectWriteMode();
    void SelectEraseMode();
    /// Leaves every mode. Warns as well: an erase that was swallowed ends here.
    void EndErase();

private:
    std::uint8_t ReadAndWarn();
    void Write(int value);

    LinkNewComPort& m_bus;
    MessageDoor m_door;
};

} // namespace tqx
