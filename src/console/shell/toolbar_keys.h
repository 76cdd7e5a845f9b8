#pragma once

#include <array>

namespace tqx {

/// A button of the main window's toolbar, and its line of help on the welcome page.
struct ToolbarKey {
    const char* Key;
    /// Short name beneath the picture.
    const char* Name;
    const char* Tooltip;
    /// File of the picture in the icons' resource folder, without its ending.
    const char* Icon;
    const char* Shortcut;
    /// What it does, and the place of this text among the labels `Label2`.
    const char* Help;
    int HelpIndex;
};

/// In their order on the bar.
inline constexpr std::array<ToolbarKey, 9> ToolbarKeys{{
    {"Save1", "Dump", "Perform a full register dump to file", "dump", "Ctrl+D",
     "Perform a full register dump to a text file.", 7},
    {"Go1", "Initialize", "Automatically Initializes the TQX7716", "initialize", "Ctrl+I",
     "Automatically startup the TQX7716 evaluation board.", 5},
    {"ReadWrite1", "Registers", "Read/Write access for all registers.", "registers", "Ctrl+1",
     "A list of available registers grouped by function, that you can read and write to.", 4},
    {"ControlPanel1", "Control", "Control Panel, control the TQX7716 visually", "control", "Ctrl+2",
     "See the TQX7716 in operation without even reading the data sheet.", 3},
    {"BlockReadWrite", "Blocks", "Do block reads and writes and access the EEPROM.", "blocks",
     "Ctrl+3", "Do block reads and writes quickly with this tool.", 2},
    {"GPIO", "GPIO", "GPIO Control Panel", "gpio", "Ctrl+G",
     "Get easy access to the GPIO functionality of the TQX7716.", 6},
    {"RegAccess", "Access", "Allows full register access", "access", "Ctrl+R",
     "Get easy access to every register available on the TQX7716", 1},
    {"EraseEEPROM", "Erase", "Erase EEPROM", "erase", "Ctrl+Del", "Erase the EEPROM", 0},
    {"About1", "About", "About this software", "about", "Ctrl+B",
     "Find out more about this software", 8},
}};

} // namespace tqx
