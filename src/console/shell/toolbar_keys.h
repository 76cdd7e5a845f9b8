#pragma once

#include <array>

namespace tqx {

/// A key of the main window's toolbar.
struct ToolbarKey {
    const char* Key;
    /// Short name beneath the picture.
    const char* Name;
    const char* Tooltip;
    /// File of the picture in the icons' resource folder, without its ending.
    const char* Icon;
    const char* Shortcut;
};

/// The keys in their order on the bar.
inline constexpr std::array<ToolbarKey, 9> ToolbarKeys{{
    {"Save1", "Dump", "Perform a full register dump to file", "dump", "Ctrl+D"},
    {"Go1", "Initialize", "Automatically Initializes the TQX7716", "initialize", "Ctrl+I"},
    {"ReadWrite1", "Registers", "Read/Write access for all registers.", "registers", "Ctrl+1"},
    {"ControlPanel1", "Control", "Control Panel, control the TQX7716 visually", "control",
     "Ctrl+2"},
    {"BlockReadWrite", "Blocks", "Do block reads and writes and access the EEPROM.", "blocks",
     "Ctrl+3"},
    {"GPIO", "GPIO", "GPIO Control Panel", "gpio", "Ctrl+G"},
    {"RegAccess", "Access", "Allows full register access", "access", "Ctrl+R"},
    {"EraseEEPROM", "Erase", "Erase EEPROM", "erase", "Ctrl+Del"},
    {"About1", "About", "About this software", "about", "Ctrl+B"},
}};

} // namespace tqx
