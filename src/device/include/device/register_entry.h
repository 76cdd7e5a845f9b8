#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tqx {

/// The tab pages on which the registers stand, in their order.
enum class RegisterTab { Main, GPIO, AIN, Temp, Voltage, Fans, Config };

inline constexpr std::array<std::string_view, 7> RegisterTabCaptions{
    "Main", "GPIO", "AIN", "Temp", "Voltage", "Fans", "Config"};

/// The caption of a tab page.
constexpr std::string_view CaptionOf(RegisterTab tab) {
    return RegisterTabCaptions[static_cast<std::size_t>(tab)];
}

/// The texts of a register's bits, bit 0 first.
using BitLegends = std::array<std::string_view, 8>;

/// The legends of a register that has none of its own.
inline constexpr BitLegends DefaultLegends{"Bit0", "Bit1", "Bit2", "Bit3",
                                           "Bit4", "Bit5", "Bit6", "Bit7"};

/// What is known of one register of the chip.
struct RegisterEntry {
    std::uint8_t Address;
    /// The short text of its row, and the longer one that is shown while it is selected.
    std::string_view Caption;
    std::string_view TypeLabel;
    RegisterTab Tab;
    /// True: the register console lets the user write it. Says nothing of what the chip does.
    bool Entry;
    BitLegends Legends;
    /// Empty for most rows.
    std::string_view Tooltip;
};

} // namespace tqx
