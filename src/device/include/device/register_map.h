#pragma once

#include "device/register_addresses.h"
#include "device/register_entry.h"

#include <array>
#include <cstdint>

namespace tqx {

namespace register_map_detail {

inline constexpr bool Writable = true;
inline constexpr bool ReadOnly = false;

constexpr RegisterEntry Row(std::uint8_t address, std::string_view caption,
                            std::string_view typeLabel, RegisterTab tab, bool entry) {
    return {.Address = address,
            .Caption = caption,
            .TypeLabel = typeLabel,
            .Tab = tab,
            .Entry = entry,
            .Legends = DefaultLegends,
            .Tooltip = tab == RegisterTab::AIN ? "Click to set as default" : ""};
}

// clang-format off
inline constexpr std::array<RegisterEntry, 112> Rows{
    Row(0x00, "Config 1", "Configuration 1", RegisterTab::Config, Writable),
    Row(0x01, "Config 2", "Configuration 2", RegisterTab::Config, Writable),
    Row(0x02, "Fan 0-3 Div", "0 to 3 Fan Divisor", RegisterTab::Fans, Writable),
    Row(0x03, "Fan 4-7 Div", "4 to 7 Fan Divisor", RegisterTab::Fans, Writable),
    Row(0x04, "Fan Speed1", "Fan Speed 1", RegisterTab::Fans, Writable),
    Row(0x05, "Fan Speed2", "Fan Speed 2", RegisterTab::Fans, Writable),
    Row(0x06, "EEPROM1", "EEPROM 1", RegisterTab::Config, Writable),
    Row(0x07, "Config 3", "Configuration 3", RegisterTab::Config, Writable),
    Row(0x08, "GPIO Config1", "Configuration 1", RegisterTab::GPIO, Writable),
    Row(0x09, "GPIO Config2", "Configuration 2", RegisterTab::GPIO, Writable),
    Row(0x0A, "GPIO Config3", "Configuration 3", RegisterTab::GPIO, Writable),
    Row(0x0B, "GPIO Config4", "Configuration 4", RegisterTab::GPIO, Writable),
    Row(0x0C, "EEPROM2", "EEPROM 2", RegisterTab::Config, Writable),
    Row(0x0D, "IntTemp Therm Lim", "Internal Temp THERM Limit", RegisterTab::Temp, Writable),
    Row(0x0E, "TDM1 Therm Lim", "TDM1 THERM Limit", RegisterTab::Temp, Writable),
    Row(0x0F, "TDM2 Therm Lim", "TDM2 Temp THERM Limit", RegisterTab::Temp, Writable),
    Row(0x10, "Int Temp TMIN", "Internal Temp TMin", RegisterTab::Temp, Writable),
    Row(0x11, "TDM1 TMIN", "TDM1 Temp TMin", RegisterTab::Temp, Writable),
    Row(0x12, "TDM2 TMIN", "TDM2 Temp TMin", RegisterTab::Temp, Writable),
    Row(0x13, "EEPROM3", "EEPROM 3", RegisterTab::Config, Writable),
    Row(0x14, "Test 1 (14h)", "Test Register 1", RegisterTab::Config, Writable),
    Row(0x15, "Test 2 (15h)", "Test Register 2", RegisterTab::Config, Writable),
    Row(0x16, "Company ID", "Manufacturers ID", RegisterTab::Main, Writable),
    Row(0x17, "Revision", "Revision", RegisterTab::Main, ReadOnly),
    Row(0x18, "Mask 1", "Mask 1", RegisterTab::Config, Writable),
    Row(0x19, "Mask 2", "Mask 2", RegisterTab::Config, Writable),
    Row(0x1A, "Mask 3", "Mask 3", RegisterTab::Config, Writable),
    Row(0x1B, "Mask 4", "Mask 4", RegisterTab::Config, Writable),
    Row(0x1C, "Mask 5", "Mask 5", RegisterTab::Config, Writable),
    Row(0x1D, "Mask 6", "Mask 6", RegisterTab::Config, Writable),
    Row(0x1E, "Int Temp Offset", "Int Temp Offset", RegisterTab::Temp, Writable),
    Row(0x1F, "Int Temp Val", "Int Temp Measured Value", RegisterTab::Temp, Writable),
    Row(0x20, "Status 1", "Status 1", RegisterTab::Config, ReadOnly),
    Row(0x21, "Status 2", "Status 2", RegisterTab::Config, ReadOnly),
    Row(0x22, "Status 3", "Status 3", RegisterTab::Config, ReadOnly),
    Row(0x23, "Status 4", "Status 4", RegisterTab::Config, Writable),
    Row(0x24, "Status 5", "Status 5", RegisterTab::Config, Writable),
    Row(0x25, "Status 6", "Status 6", RegisterTab::Config, Writable),
    Row(0x26, "VBatt Val", "Vbatt Measured", RegisterTab::Voltage, ReadOnly),
    Row(0x27, "Ain8 Val", "Ain8 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x28, "TDM1 Val", "Ext1 Measured", RegisterTab::Temp, ReadOnly),
    Row(0x29, "TDM2/Ain9 Val", "Ext2/Ain9", RegisterTab::Temp, ReadOnly),
    Row(0x2A, "3.3VSTBY Val", "3.3VSTBY", RegisterTab::Voltage, ReadOnly),
    Row(0x2B, "3.3VMAIN Val", "3.3V Main", RegisterTab::Voltage, ReadOnly),
    Row(0x2C, "5V Val", "+5V Measured", RegisterTab::Voltage, ReadOnly),
    Row(0x2D, "Vccp Val", "Vccp Measured", RegisterTab::Voltage, ReadOnly),
    Row(0x2E, "+12V Val", "+12V Measured", RegisterTab::Voltage, ReadOnly),
    Row(0x2F, "-12V Val", "-12V Measured", RegisterTab::Voltage, ReadOnly),
    Row(0x30, "Ain0 Val", "Ain0 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x31, "Ain1 Val", "Ain1 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x32, "Ain2 Val", "Ain2 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x33, "Ain3 Val", "Ain3 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x34, "Ain4 Val", "Ain4 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x35, "Ain5 Val", "Ain5 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x36, "Ain6 Val", "Ain6 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x37, "Ain7 Val", "Ain7 Measured", RegisterTab::AIN, ReadOnly),
    Row(0x38, "Fan0 Val", "Fan0 measured", RegisterTab::Fans, ReadOnly),
    Row(0x39, "Fan1 Val", "Fan1 measured", RegisterTab::Fans, ReadOnly),
    Row(0x3A, "Fan2 Val", "Fan2 measured", RegisterTab::Fans, ReadOnly),
    Row(0x3B, "Fan3 Val", "Fan3 measured", RegisterTab::Fans, ReadOnly),
    Row(0x3C, "Fan4 Val", "Fan4 measured", RegisterTab::Fans, ReadOnly),
    Row(0x3D, "Fan5 Val", "Fan5 measured", RegisterTab::Fans, ReadOnly),
    Row(0x3E, "Fan6 Val", "Fan6 measured", RegisterTab::Fans, ReadOnly),
    Row(0x3F, "Fan7 Val", "Fan7 measured", RegisterTab::Fans, ReadOnly),
    Row(0x40, "TDM1 HighLim", "Ext1 High Limit", RegisterTab::Temp, Writable),
    Row(0x41, "TDM2/Ain9 HighLim", "Ext2/Ain9 High Limit", RegisterTab::Temp, Writable),
    Row(0x42, "3.3VSTBY High Lim", "3.3VSTBY High Limit", RegisterTab::Voltage, Writable),
    Row(0x43, "3.3VMAIN HighLim", "3.3V Main High Limit", RegisterTab::Voltage, Writable),
    Row(0x44, "5V HighLim", "+5V High Limit", RegisterTab::Voltage, Writable),
    Row(0x45, "Vccp HighLim", "Vccp High Limit", RegisterTab::Voltage, Writable),
    Row(0x46, "+12V HighLim", "+12V High Limit", RegisterTab::Voltage, Writable),
    Row(0x47, "-12V HighLim", "-12V High Limit", RegisterTab::Voltage, Writable),
    Row(0x48, "TDM1 LowLim", "Ext1 Low Limit", RegisterTab::Temp, Writable),
    Row(0x49, "TDM2/Ain9 LowLim", "Ext2 Low Limit", RegisterTab::Temp, Writable),
    Row(0x4A, "3.3VSTBY LowLim", "3.3VSTBY Low Limit", RegisterTab::Voltage, Writable),
    Row(0x4B, "3.3V MAIN LowLim", "3.3VMain Low Limit", RegisterTab::Voltage, Writable),
    Row(0x4C, "5V LowLim", "+5V Low Limit", RegisterTab::Voltage, Writable),
    Row(0x4D, "Vccp LowLim", "Vccp Low Limit", RegisterTab::Voltage, Writable),
    Row(0x4E, "+12V LowLim", "+12V Low Limit", RegisterTab::Voltage, Writable),
    Row(0x4F, "-12V LowLim", "-12V Low Limit", RegisterTab::Voltage, Writable),
    Row(0x50, "Ain0 HighLim", "Ain0 High Limit", RegisterTab::AIN, Writable),
    Row(0x51, "Ain1 HighLim", "Ain1 High Limit", RegisterTab::AIN, Writable),
    Row(0x52, "Ain2 HighLim", "Ain2 High Limit", RegisterTab::AIN, Writable),
    Row(0x53, "Ain3 HighLim", "Ain3 High Limit", RegisterTab::AIN, Writable),
    Row(0x54, "Ain4 HighLim", "Ain4 High Limit", RegisterTab::AIN, Writable),
    Row(0x55, "Ain5 HighLim", "Ain5 High Limit", RegisterTab::AIN, Writable),
    Row(0x56, "Ain6 HighLim", "Ain6 High Limit", RegisterTab::AIN, Writable),
    Row(0x57, "Ain7 HighLim", "Ain7 High Limit", RegisterTab::AIN, Writable),
    Row(0x58, "Ain0 LowLim", "Ain0 Low Limit", RegisterTab::AIN, Writable),
    Row(0x59, "Ain1 LowLim", "Ain1 Low Limit", RegisterTab::AIN, Writable),
    Row(0x5A, "Ain2 LowLim", "Ain2 Low Limit", RegisterTab::AIN, Writable),
    Row(0x5B, "Ain3 LowLim", "Ain3 Low Limit", RegisterTab::AIN, Writable),
    Row(0x5C, "Ain4 LowLim", "Ain4 Low Limit", RegisterTab::AIN, Writable),
    Row(0x5D, "Ain5 LowLim", "Ain5 Low Limit", RegisterTab::AIN, Writable),
    Row(0x5E, "Ain6 LowLim", "Ain6 Low Limit", RegisterTab::AIN, Writable),
    Row(0x5F, "Ain7 LowLim", "Ain7 Low Limit", RegisterTab::AIN, Writable),
    Row(0x60, "Fan0 HighLim", "Fan0 High Limit", RegisterTab::Fans, Writable),
    Row(0x61, "Fan1 HighLim", "Fan1 High Limit", RegisterTab::Fans, Writable),
    Row(0x62, "Fan2 HighLim", "Fan2 High Limit", RegisterTab::Fans, Writable),
    Row(0x63, "Fan3 HighLim", "Fan3 High Limit", RegisterTab::Fans, Writable),
    Row(0x64, "Fan4 HighLim", "Fan4 High Limit", RegisterTab::Fans, Writable),
    Row(0x65, "Fan5 HighLim", "Fan5 High Limit", RegisterTab::Fans, Writable),
    Row(0x66, "Fan6 HighLim", "Fan6 High Limit", RegisterTab::Fans, Writable),
    Row(0x67, "Fan7 HighLim", "Fan7 High Limit", RegisterTab::Fans, Writable),
    Row(0x68, "IntTemp HighLim", "Int Temp High Limit", RegisterTab::Temp, Writable),
    Row(0x69, "IntTemp LowLim", "Int Temp Low Limit", RegisterTab::Temp, Writable),
    Row(0x6A, "Vbatt HighLim", "Vbatt High Limit", RegisterTab::Voltage, Writable),
    Row(0x6B, "Vbatt LowLim", "Vbatt Low Limit", RegisterTab::Voltage, Writable),
    Row(0x6C, "Ain8 HighLim", "Ain8 High Limit", RegisterTab::AIN, Writable),
    Row(0x6D, "Ain8 LowLim", "Ain8 Low Limit", RegisterTab::AIN, Writable),
    Row(0x6E, "Ext1 Temp Offset", "Ext1 Temp Offset", RegisterTab::Temp, Writable),
    Row(0x6F, "Ext2 Temp Offset", "Ext2 Temp Offset", RegisterTab::Temp, Writable),
};

struct OwnLegendsRow {
    std::uint8_t Address;
    BitLegends Legends;
};

inline constexpr std::array<OwnLegendsRow, 27> OwnLegends{{
    {0x00, {"Monitor", "IntEnable", "IntClear", "En V/Ext2", "En THERM", "En DAC AFC", "En PWM AFC", "Init=0"}},
    {0x01, {"EnGPIO0/Fan0", "EnGPIO1/Fan1", "EnGPIO2/Fan2", "EnGPIO3/Fan3", "EnGPIO4/Fan4", "EnGPIO5/Fan5", "EnGPIO6/Fan6", "EnGPIO7/Fan7"}},
    {0x02, {"Fan0 Div", "Fan0 Div", "Fan1 Div", "Fan1 Div", "Fan2 Div", "Fan2 Div", "Fan3 Div", "Fan3 Div"}},
    {0x03, {"Fan4 Div", "Fan4 Div", "Fan5 Div", "Fan5 Div", "Fan6 Div", "Fan6 Div", "Fan7 Div", "Fan7 Div"}},
    {0x06, {"FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse"}},
    {0x07, {"EnGPIO1/THERM", "CI Clear", "VrefSelect", "Unused", "Unused", "Unused", "GPIO6Dir", "GPIOPol"}},
    {0x08, {"GPIO0 Dir", "GPIO0 Pol", "GPIO1 Dir", "GPIO1 Pol", "GPIO2 Dirn", "GPIO2 Pol", "GPIO3 Dir", "GPIO3 Pol"}},
    {0x09, {"GPIO4 Dir", "GPIO4 Poly", "GPIO5 Dir", "GPIO5 Pol", "GPIO6 Dir", "GPIO6 Pol", "GPIO7 Dir", "GPIO7 Pol"}},
    {0x0A, {"GPIO8 Dir", "GPIO8 Pol", "GPIO9 Dir", "GPIO9 Pol", "GPIO10 Dir", "GPIO10 Pol", "GPIO11 Dir", "GPIO11 Pol"}},
    {0x0B, {"GPIO12 Dir", "GPIO12 Pol", "GPIO13 Dir", "GPIO13 Pol", "GPIO14 Dir", "GPIO14 Pol", "GPIO15 Dir", "GPIO15 Pol"}},
    {0x0C, {"FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse", "FactoryUse"}},
    {0x13, {"Read", "Write", "Erase", "WriteProtect", "TestModeBit0", "TestModeBit1", "TestModeBit2", "Clock Extend"}},
    {0x14, {"Trim R.B.", "PWM Polarity", "Trim & Test En", "Diode Fault", "ADC LSB", "ADC B1", "Ext. Clk", "Shutdown"}},
    {0x15, {"INTB clk", "GPIO 15 B0", "GPIO 15 B1", "Clk - Pin11", "EOCB - Pin12", "Single Ch.", "I2C Filter?", "Avg. Off"}},
    {0x17, {"MinorRevCode", "MinorRevCode", "MinorRevCode", "MinorRevCode", "MajorRevCode", "MajorRevCode", "MajorRevCode", "MajorRevCode"}},
    {0x18, {"Ext1Temp", "Ext2Temp/Ain9", "3.3VSTBY", "3.3VMAIN", "+5V", "Vccp", "+12V", "-12V"}},
    {0x19, {"Ain 0", "Ain 1", "Ain 2", "Ain 3", "Ain 4", "Ain 5", "Ain 6", "Ain 7"}},
    {0x1A, {"Fan 0", "Fan 1", "Fan 2", "Fan 3", "Fan 4", "Fan 5", "Fan 6", "Fan 7"}},
    {0x1B, {"Int Temp", "Vbatt", "Ain 8", "THERM", "AFC", "Unused", "CI", "GPIO 16"}},
    {0x1C, {"GPIO 0", "GPIO 1", "GPIO 2", "GPIO 3", "GPIO 4", "GPIO 5", "GPIO 6", "GPIO 7"}},
    {0x1D, {"GPIO 8", "GPIO 9", "GPIO 10", "GPIO 11", "GPIO 12", "GPIO 13", "GPIO 14", "GPIO 15"}},
    {0x20, {"Ext1Temp", "Ext2Temp/Ain9", "3.3VSTBY", "3.3VMAIN", "+5V", "Vccp", "+12V", "-12V"}},
    {0x21, {"Ain 0", "Ain 1", "Ain 2", "Ain 3", "Ain 4", "Ain 5", "Ain 6", "Ain 7"}},
    {0x22, {"Fan 0", "Fan 1", "Fan 2", "Fan 3", "Fan 4", "Fan 5", "Fan 6", "Fan 7"}},
    {0x23, {"Int Temp", "Vbatt", "Ain 8", "THERM", "AFC", "Unused", "CI", "GPIO 16"}},
    {0x24, {"GPIO 0", "GPIO 1", "GPIO 2", "GPIO 3", "GPIO 4", "GPIO 5", "GPIO 6", "GPIO 7"}},
    {0x25, {"GPIO 8", "GPIO 9", "GPIO 10", "GPIO 11", "GPIO 12", "GPIO 13", "GPIO 14", "GPIO 15"}},
}};

// clang-format on

constexpr std::array<RegisterEntry, 112> WithOwnLegends() {
    std::array<RegisterEntry, 112> map = Rows;
    for (const OwnLegendsRow& row : OwnLegends) {
        map[row.Address].Legends = row.Legends;
    }
    return map;
}

} // namespace register_map_detail

/// The named registers 00h to 6Fh; the index is the address.
inline constexpr std::array<RegisterEntry, 112> RegisterMap = register_map_detail::WithOwnLegends();

} // namespace tqx
