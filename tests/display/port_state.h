#pragma once

#include <array>
#include <cstdint>
#include <fstream>
#include <string>

namespace tqx::test {

/// How a printer port stands, in a file, so that one process sees the port of another and sees it
/// when that has ended.
struct PortState {
    bool AtWork = false; ///< the program has come to where the test wants it
    bool Claimed = false;
    std::uint8_t Lines = 0;

    static PortState Of(const std::string& path) {
        std::array<char, 3> bytes{};
        std::ifstream(path, std::ios::binary).read(bytes.data(), bytes.size());
        return {bytes[0] != 0, bytes[1] != 0, static_cast<std::uint8_t>(bytes[2])};
    }

    void SaveAs(const std::string& path) const {
        const std::array<char, 3> bytes{static_cast<char>(AtWork), static_cast<char>(Claimed),
                                        static_cast<char>(Lines)};
        // In place: whoever looks finds a state and never an empty file.
        std::fstream(path, std::ios::binary | std::ios::in | std::ios::out)
            .write(bytes.data(), bytes.size());
    }
};

} // namespace tqx::test
