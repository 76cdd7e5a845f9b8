#pragma once

#include <array>
#include <cstdint>

namespace tqx {

/// Where a fan stands on the control centre and in the chip.
struct FanSettings {
    int Row;
    std::int16_t Number;
    std::int16_t ValueAddressPointer;
    std::int16_t LimitAddressPointer;
};

/// Where a voltage input stands on the control centre and in the chip, and the volts that its
/// counts 0 and 255 stand for.
struct VoltageSettings {
    int Row;
    std::int16_t ValueAddrPtr;
    std::int16_t LowLimitPtr;
    std::int16_t HighLimitPtr;
    float MinVoltage;
    float MaxVoltage;
};

/// Where a temperature stands on the control centre and in the chip.
struct TemperatureSettings {
    int Row;
    std::int16_t ValueAddressPointer;
    std::int16_t MinAddressPointer;
    std::int16_t MaxAddressPointer;
};

inline constexpr std::array<FanSettings, 8> FanTable{{
    {7, 0, 0x38, 0x60},
    {8, 1, 0x39, 0x61},
    {9, 2, 0x3A, 0x62},
    {10, 3, 0x3B, 0x63},
    {11, 4, 0x3C, 0x64},
    {12, 5, 0x3D, 0x65},
    {13, 6, 0x3E, 0x66},
    {14, 7, 0x3F, 0x67},
}};

/// In the order in which the channels are set up.
inline constexpr std::array<VoltageSettings, 17> VoltageTable{{
    {31, 0x2B, 0x4B, 0x43, 0.0172F, 4.423F},
    {30, 0x2A, 0x4A, 0x42, 0.0172F, 4.423F},
    {15, 0x26, 0x6B, 0x6A, 0.016F, 3.984F},
    {16, 0x2C, 0x4C, 0x44, 0.026F, 6.634F},
    {17, 0x2F, 0x4F, 0x47, -15.92F, 2.428F},
    {18, 0x2E, 0x4E, 0x46, 0.062F, 15.938F},
    {19, 0x2D, 0x4D, 0x45, 0.012F, 2.988F},
    {20, 0x30, 0x58, 0x50, 0.012F, 2.988F},
    {21, 0x31, 0x59, 0x51, 0.012F, 2.988F},
    {22, 0x32, 0x5A, 0x52, 0.012F, 2.988F},
    {23, 0x33, 0x5B, 0x53, 0.012F, 2.988F},
    {24, 0x34, 0x5C, 0x54, 0.012F, 2.988F},
    {25, 0x35, 0x5D, 0x55, 0.012F, 2.988F},
    {26, 0x36, 0x5E, 0x56, 0.01F, 2.49F},
    {27, 0x37, 0x5F, 0x57, 0.01F, 2.49F},
    {28, 0x27, 0x6D, 0x6C, 0.01F, 2.49F},
    {29, 0x29, 0x49, 0x41, 0.01F, 2.49F},
}};

/// "ExtTemp1" shares its registers with "Ain 9": the chip measures one or the other there.
inline constexpr std::array<TemperatureSettings, 3> TemperatureTable{{
    {3, 0x1F, 0x69, 0x68},
    {4, 0x28, 0x48, 0x40},
    {5, 0x29, 0x49, 0x41},
}};

} // namespace tqx
