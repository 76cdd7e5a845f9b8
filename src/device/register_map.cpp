#include "device/register_map.h"

#include <algorithm>

namespace tqx {
namespace {

constexpr bool InAddressOrder() {
    for (std::size_t i = 0; i < RegisterMap.size(); ++i) {
        if (RegisterMap[i].Address != i) {
            return false;
        }
    }
    return true;
}

constexpr auto OnTab(RegisterTab tab) {
    return std::ranges::count(RegisterMap, tab, &RegisterEntry::Tab);
}

/// True when exactly the registers 17h, 20h to 22h and 26h to 3Fh refuse an entry.
constexpr bool MeasuredRegistersRefuseEntry() {
    return std::ranges::all_of(RegisterMap, [](const RegisterEntry& row) {
        const std::uint8_t at = row.Address;
        const bool refuses = at == 0x17 || (at >= 0x20 && at <= 0x22) || (at >= 0x26 && at <= 0x3F);
        return row.Entry == !refuses;
    });
}

constexpr bool MasksMatchStatus() {
    for (std::size_t i = 0; i < 6; ++i) {
        if (RegisterMap[reg::Mask1 + i].Legends != RegisterMap[reg::Status1 + i].Legends) {
            return false;
        }
    }
    return true;
}

constexpr bool NothingEmpty() {
    return std::ranges::all_of(RegisterMap, [](const RegisterEntry& row) {
        return !row.Caption.empty() && !row.TypeLabel.empty() &&
               std::ranges::none_of(row.Legends, &std::string_view::empty);
    });
}

static_assert(InAddressOrder());
static_assert(OnTab(RegisterTab::Main) == 2);
static_assert(OnTab(RegisterTab::GPIO) == 4);
static_assert(OnTab(RegisterTab::AIN) == 27);
static_assert(OnTab(RegisterTab::Temp) == 18);
static_assert(OnTab(RegisterTab::Voltage) == 21);
static_assert(OnTab(RegisterTab::Fans) == 20);
static_assert(OnTab(RegisterTab::Config) == 20);
static_assert(MeasuredRegistersRefuseEntry());
static_assert(MasksMatchStatus());
static_assert(NothingEmpty());
static_assert(std::ranges::count(RegisterMap, true, &RegisterEntry::OwnLegends) == 27);
static_assert(FindRegister(0x6F)->Caption == "Ext2 Temp Offset");
static_assert(FindRegister(0x70) == nullptr);

} // namespace
} // namespace tqx
