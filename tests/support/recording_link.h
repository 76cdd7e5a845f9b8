#pragma once

#include <link/link_error.h>
#include <link/link_server.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tqx::test {

/// A link without a board: it writes down every call as one line of text, answers reads from
/// tables, and fails on request.
///
/// The lines read "BoardBus.ReadByte 58 16", "SMBusLink.WriteByte 2C 0 3", "PrinterPortLink.
/// BurstMode 1": object, operation, and the arguments in hexadecimal. A get of a property is a line
/// of its own only where RecordGets is set.
class RecordingLink : public LinkServer,
                      public PrinterPortLink,
                      public BoardBus,
                      public EEPROMLink,
                      public SMBusLink {
public:
    // ---- what a test sets and looks at ----
    std::vector<std::string> Calls;
    bool RecordGets = false;
    /// Registers of the chip on either medium. Writes go in here when KeepWrites is set.
    std::array<std::uint8_t, 256> Registers{};
    bool KeepWrites = true;
    /// Only these slave addresses answer where the list is not empty; others read FFh.
    std::vector<std::uint8_t> Answering;
    std::map<std::pair<std::uint8_t, std::uint8_t>, std::uint8_t> EEPROM;
    /// Calls whose line begins with this text raise LinkError (after they are written down).
    std::string FailOn;
    /// How many matching calls go through before the failure.
    int FailAfter = 0;

    std::uint8_t Ports = 1;
    FrameBytes ReadFrame{};
    /// The byte count that a block read gets from the chip.
    std::uint8_t BlockCount = 32;
    FrameBytes Trace{};
    std::int16_t PEC = 0;
    bool PECGood = true;
    std::uint32_t SMBusBase = 0x5000;

    /// The lines since the last call of Take.
    std::vector<std::string> Take() { return std::exchange(Calls, {}); }

    /// The same in short: "R1F" a read of 1Fh, "W0=3" a write, "burst 1" burst mode; without the
    /// port's address, which goes ahead of some writes.
    std::string TakeTraffic() {
        std::string traffic;
        for (const std::string& call : Take()) {
            const std::string part = Short(call);
            traffic += (traffic.empty() || part.empty() ? "" : " ") + part;
        }
        return traffic;
    }

    // ---- LinkServer ----
    tqx::PrinterPortLink& PrinterPortLink() override { return *this; }

    tqx::SMBusLink& SMBusLink() override { return *this; }

    std::int16_t ActiveMedium() override { return Got("LinkServer.ActiveMedium", m_medium); }

    void ActiveMedium(std::int16_t medium) override {
        Note("LinkServer.ActiveMedium", {medium});
        m_medium = medium;
    }

    // ---- PrinterPortLink ----
    std::uint8_t PortCount() override { return Got("PrinterPortLink.PortCount", Ports); }

    void PortIndex(std::uint8_t index) override {
        Note("PrinterPortLink.PortIndex", {index});
        m_portAddress = static_cast<std::uint16_t>(0x378 - 0x100 * index);
    }

    std::uint16_t PortAddress() override { return Got("PortAddress", m_portAddress); }

    void BurstMode(bool on) override { Note("PrinterPortLink.BurstMode", {on}); }

    tqx::BoardBus& BoardBus() override { return *this; }

    tqx::EEPROMLink& EEPROMLink() override { return *this; }

    // ---- BoardBus; the slave address is shared with SMBusLink, as one chip is chosen ----
    std::uint8_t SlaveAddress() override { return Got("SlaveAddress", m_slaveAddress); }

    void SlaveAddress(std::uint8_t address) override {
        Note("SlaveAddress", {address});
        m_slaveAddress = address;
    }

    void PortAddress(std::uint16_t address) override {
        Note("BoardBus.PortAddress", {address});
        m_portAddress = address;
    }

    bool BoardMode() override { return Got("BoardBus.BoardMode", m_boardMode); }

    void BoardMode(bool mode) override {
        Note("BoardBus.BoardMode", {mode});
        m_boardMode = mode;
    }

    /// BoardBus and SMBusLink share these two; the medium is told by the form of the address.
    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) override {
        Note(MediumOf(address) + ".ReadByte", {address, reg});
        return Answers(address) ? Registers[reg] : 0xFF;
    }

    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) override {
        Note(MediumOf(address) + ".WriteByte", {address, reg, value});
        if (KeepWrites && Answers(address)) {
            Registers[reg] = value;
        }
    }

    void StartupOption(bool option) override { Note("BoardBus.StartupOption", {option}); }

    void ClearPointerFlag(bool flag) override { Note("BoardBus.ClearPointerFlag", {flag}); }

    void UsePEC(bool use) override { Note("BoardBus.UsePEC", {use}); }

    void EEPROMTarget(bool target) override { Note("BoardBus.EEPROMTarget", {target}); }

    void ByteDelay(float seconds) override {
        Note("BoardBus.ByteDelay us", {static_cast<int>(std::lround(seconds * 1e6F))});
    }

    void BlockRead(std::uint8_t first, std::uint8_t second, std::uint8_t& out) override {
        Note("BoardBus.BlockRead", {first, second});
        out = BlockCount;
    }

    void BlockWrite(std::uint8_t count, const WriteBlock& frame) override {
        std::vector<int> arguments{count};
        for (int i = 3; i < count + 3; ++i) {
            arguments.push_back(frame.at(static_cast<std::size_t>(i)));
        }
        Note("BoardBus.BlockWrite", arguments);
    }

    FrameBytes BlockData() override { return Got("BoardBus.BlockData", ReadFrame); }

    FrameBytes PECTrace() override { return Got("BoardBus.PECTrace", Trace); }

    std::int16_t PECResult() override { return Got("BoardBus.PECResult", PEC); }

    bool PECOK() override { return Got("BoardBus.PECOK", PECGood); }

    void BusStart() override { Note("BoardBus.BusStart", {}); }

    void BusStop() override { Note("BoardBus.BusStop", {}); }

    void BusRelease() override { Note("BoardBus.BusRelease", {}); }

    void SendBusByte(std::uint8_t value) override { Note("BoardBus.SendBusByte", {value}); }

    void WaitAck() override { Note("BoardBus.WaitAck", {}); }

    bool AckStatus() override {
        Note("BoardBus.AckStatus", {});
        return NotAcknowledged;
    }

    std::uint8_t ReadBusByte() override {
        Note("BoardBus.ReadBusByte", {});
        return m_nextBusByte < BusBytes.size() ? BusBytes[m_nextBusByte++] : 0xFF;
    }

    void SendAck() override { Note("BoardBus.SendAck", {}); }

    void SendNack() override { Note("BoardBus.SendNack", {}); }

    void PortWrite(std::uint16_t port, std::uint8_t value) override {
        Note("BoardBus.PortWrite", {port, value});
    }

    std::uint8_t PortRead(std::uint16_t port) override {
        Note("BoardBus.PortRead", {port});
        return PortStatus;
    }

    /// What AckStatus gives, what ReadBusByte gives in turn, and what PortRead gives.
    bool NotAcknowledged = false;
    std::vector<std::uint8_t> BusBytes;
    std::uint8_t PortStatus = 0xFF;

    // ---- EEPROMLink ----
    std::uint8_t ReadEEPROM(std::uint8_t high, std::uint8_t low) override {
        Note("EEPROMLink.ReadEEPROM", {high, low});
        const auto at = EEPROM.find({high, low});
        return at == EEPROM.end() ? 0xFF : at->second;
    }

    void WriteEEPROM(std::uint8_t high, std::uint8_t low, std::uint8_t value) override {
        Note("EEPROMLink.WriteEEPROM", {high, low, value});
        EEPROM[{high, low}] = value;
    }

    std::uint8_t ErasePage(std::uint8_t high, std::uint8_t low, std::uint8_t zero) override {
        Note("EEPROMLink.ErasePage", {high, low, zero});
        return 0;
    }

    void EEPROMWait(bool wait) override { Note("EEPROMLink.EEPROMWait", {wait}); }

    void EEPROMDelay(std::int16_t delay) override { Note("EEPROMLink.EEPROMDelay", {delay}); }

    // ---- SMBusLink ----
    std::uint32_t BaseAddress() override { return Got("SMBusLink.BaseAddress", SMBusBase); }

private:
    static std::string Short(const std::string& call) {
        unsigned reg = 0;
        unsigned value = 0;
        char text[16];
        if (std::sscanf(call.c_str(), "%*[A-Za-z].ReadByte %*X %X", &reg) == 1) {
            std::snprintf(text, sizeof text, "R%X", reg);
        } else if (std::sscanf(call.c_str(), "%*[A-Za-z].WriteByte %*X %X %X", &reg, &value) == 2) {
            std::snprintf(text, sizeof text, "W%X=%X", reg, value);
        } else if (call.starts_with("PrinterPortLink.BurstMode")) {
            std::snprintf(text, sizeof text, "burst %c", call.back());
        } else {
            return call.starts_with("BoardBus.PortAddress") ? std::string() : call;
        }
        return text;
    }

    static std::string MediumOf(std::uint8_t address) {
        return address >= 0x58 && address <= 0x5D ? "BoardBus" : "SMBusLink";
    }

    bool Answers(std::uint8_t address) const {
        return Answering.empty() ||
               std::find(Answering.begin(), Answering.end(), address) != Answering.end();
    }

    void Note(const std::string& operation, const std::vector<int>& arguments) {
        std::string line = operation;
        for (const int argument : arguments) {
            char text[16];
            std::snprintf(text, sizeof text, " %X", static_cast<unsigned>(argument));
            line += text;
        }
        Calls.push_back(line);
        if (!FailOn.empty() && line.rfind(FailOn, 0) == 0 && FailAfter-- <= 0) {
            FailAfter = 0;
            throw LinkError("the link failed", line, "This failure was asked for.");
        }
    }

    template <typename Value>
    Value Got(const std::string& property, const Value& value) {
        if (RecordGets) {
            Note(property + "?", {});
        }
        return value;
    }

    std::int16_t m_medium = ActivePrinterPort;
    std::uint16_t m_portAddress = 0x378;
    std::uint8_t m_slaveAddress = 0;
    bool m_boardMode = false;
    std::size_t m_nextBusByte = 0;
};

} // namespace tqx::test
