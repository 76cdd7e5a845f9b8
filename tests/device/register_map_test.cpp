#include <device/register_map.h>

#include <cstdint>
#include <gtest/gtest.h>

namespace tqx {
namespace {

/// A number that changes with every letter and every other entry of the table.
std::uint64_t Digest() {
    std::uint64_t digest = 0xCBF29CE484222325;
    const auto take = [&digest](std::uint64_t value) { digest = (digest ^ value) * 0x100000001B3; };
    const auto takeText = [&take](std::string_view text) {
        for (const char letter : text) {
            take(static_cast<unsigned char>(letter));
        }
        take(0);
    };
    for (const RegisterEntry& row : RegisterMap) {
        take(row.Address);
        takeText(row.Caption);
        takeText(row.TypeLabel);
        take(static_cast<std::uint64_t>(row.Tab));
        take(row.Entry);
        for (const std::string_view legend : row.Legends) {
            takeText(legend);
        }
        takeText(row.Tooltip);
    }
    return digest;
}

/// No letter of the table changes unnoticed. Whoever means to change it compares it with the chip's
/// list, and then writes the new number here.
TEST(RegisterMap, ChangesOnlyOnPurpose) {
    EXPECT_EQ(Digest(), 14581374518343758343U);
    for (std::size_t i = 0; i < RegisterMap.size(); ++i) {
        EXPECT_EQ(RegisterMap[i].Address, i);
    }
}

} // namespace
} // namespace tqx
