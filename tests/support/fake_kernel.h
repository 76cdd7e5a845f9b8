#pragma once

#include <linuxboard/kernel_face.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <deque>
#include <functional>
#include <linux/i2c.h>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace tqx::test {

/// A kernel with the files, nodes, chips and ports that a test gives it. It writes down every
/// system call but those on the files in which the kernel tells of itself, and fails on request.
class FakeKernel : public KernelFace {
public:
    /// Texts under /proc and /sys, which make up the folders too.
    std::map<std::string, std::string> Files;
    std::map<std::string, std::string> RealPaths;
    std::map<std::string, NodeRights> Rights;
    std::string TheRelease = "6.1.0-37-amd64";

    /// Device nodes and the error of opening each; there are no others.
    std::map<std::string, int> Nodes;
    using Registers = std::array<std::uint8_t, 256>;
    /// By node and address.
    std::map<std::pair<std::string, std::uint8_t>, Registers> Chips;
    std::set<std::pair<std::string, std::uint8_t>> OwnedByDriver;
    unsigned long Functions = I2C_FUNC_SMBUS_BYTE_DATA;
    int NobodyAnswers = ENXIO;

    std::uint8_t Status = 0x10;
    std::uint8_t Data = 0;
    bool Claimed = false;

    /// Errors of the next calls of an operation, by its name. 0 lets a call pass.
    std::map<std::string, std::deque<int>> NextErrors;
    std::size_t ReadAtMost = 4096;
    std::chrono::nanoseconds Time{0};
    /// Called in every sleep, ahead of it.
    std::function<void()> OnSleep;

    int OpenFiles() const { return static_cast<int>(m_open.size()); }

    /// The calls since the last look, as "PortWriteData B3; PortRelease".
    std::string TakeCalls() { return std::exchange(m_calls, {}); }

    long CallCount = 0;

    void AddAdapter(int number, const std::string& name) {
        const std::string entry = "i2c-" + std::to_string(number);
        Files["/sys/bus/i2c/devices/" + entry + "/name"] = name + "\n";
        Nodes["/dev/" + entry] = 0;
    }

    void RemoveAdapter(int number) {
        const std::string entry = "i2c-" + std::to_string(number);
        Files.erase("/sys/bus/i2c/devices/" + entry + "/name");
        Nodes.erase("/dev/" + entry);
    }

    /// A chip that tells `identity`, with its own address in register 20h.
    void AddChip(int number, std::uint8_t address, std::uint8_t identity = 0x41) {
        Registers& registers = Chips[{"/dev/i2c-" + std::to_string(number), address}];
        registers[0x16] = identity;
        registers[0x20] = address;
    }

    void AddPort(int number, const std::string& baseAddress) {
        const std::string name = "parport" + std::to_string(number);
        Files["/proc/sys/dev/parport/" + name + "/base-addr"] = baseAddress;
        Files["/proc/sys/dev/parport/" + name + "/devices/active"] = "none\n";
        Nodes["/dev/" + name] = 0;
    }

    KernelAnswer OpenNode(const std::string& path) override {
        if (const int error = Called("OpenNode " + path)) {
            return {.Error = error};
        }
        const auto node = Nodes.find(path);
        const int error = node == Nodes.end() ? ENOENT : node->second;
        return error != 0 ? KernelAnswer{.Error = error} : Opened({.Path = path});
    }

    KernelAnswer OpenText(const std::string& path) override {
        return Files.contains(path) ? Opened({.Path = path}) : KernelAnswer{.Error = ENOENT};
    }

    void Close(int file) override {
        const auto open = m_open.extract(file);
        if (!open.empty() && !Files.contains(open.mapped().Path)) {
            Called("Close");
            Claimed = false;
        }
    }

    KernelAnswer Read(int file, std::span<char> buffer) override {
        if (const int error = NextError("Read")) {
            return {.Error = error};
        }
        Open& open = m_open.at(file);
        const std::string rest = Files.at(open.Path).substr(open.Position);
        const std::size_t count = std::min({rest.size(), buffer.size(), ReadAtMost});
        std::memcpy(buffer.data(), rest.data(), count);
        open.Position += count;
        return {.Value = count};
    }

    std::vector<std::string> List(const std::string& folder) override {
        std::set<std::string> names;
        for (const auto& [path, text] : Files) {
            if (path.starts_with(folder + "/")) {
                const std::string below = path.substr(folder.size() + 1);
                names.insert(below.substr(0, below.find('/')));
            }
        }
        return {names.begin(), names.end()};
    }

    std::string RealPath(const std::string& path) override {
        const auto found = RealPaths.find(path);
        return found != RealPaths.end() ? found->second : "";
    }

    KernelAnswer I2CFunctions(int /*file*/) override {
        return {.Error = Called("I2CFunctions"), .Value = Functions};
    }

    KernelAnswer I2CAddress(int file, std::uint8_t address) override {
        if (const int error = Called("I2CAddress " + Hex(address))) {
            return {.Error = error};
        }
        Open& open = m_open.at(file);
        open.Address = address;
        return {.Error = OwnedByDriver.contains({open.Path, address}) ? EBUSY : 0};
    }

    KernelAnswer SMBusReadByte(int file, std::uint8_t reg) override {
        if (const int error = Called("SMBusReadByte " + Hex(reg))) {
            return {.Error = error};
        }
        const Registers* const chip = ChipOf(file);
        return chip != nullptr ? KernelAnswer{.Value = (*chip)[reg]}
                               : KernelAnswer{.Error = NobodyAnswers};
    }

    KernelAnswer SMBusWriteByte(int file, std::uint8_t reg, std::uint8_t value) override {
        if (const int error = Called("SMBusWriteByte " + Hex(reg) + " " + Hex(value))) {
            return {.Error = error};
        }
        Registers* const chip = ChipOf(file);
        if (chip == nullptr) {
            return {.Error = NobodyAnswers};
        }
        (*chip)[reg] = value;
        return {};
    }

    KernelAnswer PortClaim(int /*file*/) override {
        const int error = Called("PortClaim");
        Claimed = error == 0;
        return {.Error = error};
    }

    KernelAnswer PortRelease(int /*file*/) override {
        Claimed = false;
        return {.Error = Called("PortRelease")};
    }

    KernelAnswer PortCompatible(int /*file*/) override {
        return {.Error = Called("PortCompatible")};
    }

    KernelAnswer PortForward(int /*file*/) override { return {.Error = Called("PortForward")}; }

    KernelAnswer PortWriteData(int /*file*/, std::uint8_t value) override {
        const int error = Called("PortWriteData " + Hex(value));
        Data = error == 0 ? value : Data;
        return {.Error = Claimed ? error : EINVAL};
    }

    KernelAnswer PortReadStatus(int /*file*/) override {
        const int error = Called("PortReadStatus");
        return {.Error = Claimed ? error : EINVAL, .Value = Status};
    }

    std::string Release() override { return TheRelease; }

    std::optional<NodeRights> RightsOf(const std::string& path) override {
        const auto found = Rights.find(path);
        return found != Rights.end() ? std::optional(found->second) : std::nullopt;
    }

    std::chrono::nanoseconds Now() override { return Time; }

    void Sleep(std::chrono::nanoseconds time) override {
        if (OnSleep) {
            OnSleep();
        }
        Time += time;
    }

private:
    struct Open {
        std::string Path;
        std::size_t Position = 0;
        std::uint8_t Address = 0;
    };

    KernelAnswer Opened(Open open) {
        m_open[++m_lastFile] = std::move(open);
        return {.Value = static_cast<unsigned long>(m_lastFile)};
    }

    int Called(const std::string& call) {
        ++CallCount;
        m_calls += (m_calls.empty() ? "" : "; ") + call;
        return NextError(call.substr(0, call.find(' ')));
    }

    int NextError(const std::string& operation) {
        std::deque<int>& errors = NextErrors[operation];
        if (errors.empty()) {
            return 0;
        }
        const int error = errors.front();
        errors.pop_front();
        return error;
    }

    Registers* ChipOf(int file) {
        const Open& open = m_open.at(file);
        const auto chip = Chips.find({open.Path, open.Address});
        return chip != Chips.end() && Nodes.contains(open.Path) ? &chip->second : nullptr;
    }

    static std::string Hex(std::uint8_t value) {
        char text[4];
        std::snprintf(text, sizeof text, "%02X", value);
        return text;
    }

    std::map<int, Open> m_open;
    int m_lastFile = 2;
    std::string m_calls;
};

} // namespace tqx::test
