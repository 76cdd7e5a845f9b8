#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tqx::sim {

/// A transfer on view.
struct TraceLine {
    /// When its start condition came, since the trace was made.
    std::chrono::nanoseconds Time;
    /// The transfer decoded, such as "S 58w+ 2E+ Sr 59r+ C2- P": start, address byte with its
    /// direction, bytes, + for a byte that was acknowledged and - for one that was not, repeated
    /// start, stop. A transfer that never came to its stop has no P.
    std::string Text;
};

/// The record of every transfer on the bus, answered or not, of which it keeps the last.
///
/// It writes down three bytes for each byte on the bus, into rings that are there from the
/// beginning; text is made when it is asked for.
class BusTrace {
public:
    using Nanoseconds = std::chrono::nanoseconds;

    /// The most that is kept, whichever is reached first.
    /// @{
    static constexpr std::size_t MostTransfers = 512;
    static constexpr std::size_t MostBytes = 8192;
    /// @}

    explicit BusTrace(std::function<Nanoseconds()> now);

    /// What comes on the bus: a start, a byte with its acknowledge, a stop.
    /// @{
    void Started();
    void Passed(std::uint8_t value, bool acknowledged);
    void Stopped();

    /// @}

    /// While paused nothing is written down and what is kept stays. A transfer that is under way
    /// when the pause begins or ends is left incomplete or out.
    /// @{
    bool Paused() const { return m_paused; }
    void Paused(bool paused);
    /// @}

    /// Drops what is kept.
    void Clear();

    /// A number that grows with all that is written down or dropped: unchanged, Lines gives what
    /// it gave before.
    std::uint64_t Version() const { return m_version; }

    /// The transfers that are kept, the oldest first.
    std::vector<TraceLine> Lines() const;

private:
    enum class Began : std::uint8_t { Not, Started, StartedAgain };

    struct Byte {
        std::uint8_t Value;
        bool Acknowledged;
        Began AfterStart;
    };

    /// Numbers of transfers and bytes count from the first one ever; the rings keep the last.
    struct Transfer {
        Nanoseconds Time;
        std::uint64_t FirstByte;
        std::uint64_t BytesEnd;
        bool Stopped;
    };

    Transfer& Newest() { return m_transfers[(m_transfersEnd - 1) % MostTransfers]; }

    std::string TextOf(const Transfer& transfer) const;

    std::function<Nanoseconds()> m_now;
    Nanoseconds m_origin;
    std::array<Transfer, MostTransfers> m_transfers{};
    std::array<Byte, MostBytes> m_bytes{};
    std::uint64_t m_transfersBegin = 0;
    std::uint64_t m_transfersEnd = 0;
    std::uint64_t m_bytesEnd = 0;
    std::uint64_t m_version = 0;
    Began m_began = Began::Not; // since the last byte
    bool m_open = false;        // the newest transfer has not come to its stop
    bool m_paused = false;
};

} // namespace tqx::sim
