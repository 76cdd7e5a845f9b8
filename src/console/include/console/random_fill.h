#pragma once

#include <random>

namespace tqx {

/// The bytes of a random fill. The generator is never seeded, so every run of the program fills
/// with the same sequence and a reading can be compared with one of yesterday.
class UnseededRandom {
public:
    /// The next byte: the whole part of a number in 0 to 1, times 255, so 0 to 254 and never 255.
    unsigned NextByte() {
        constexpr double range = 4294967296.0;
        return static_cast<unsigned>(m_engine() / range * 255);
    }

private:
    std::mt19937 m_engine;
};

} // namespace tqx
