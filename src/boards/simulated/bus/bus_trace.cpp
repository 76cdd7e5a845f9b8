#include "simulated/bus_trace.h"

#include "bus/byte_slave.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tqx::sim {

namespace {

void AppendHex(std::string& text, std::uint8_t value) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    text += Digits[value >> 4];
    text += Digits[value & 0x0F];
}

} // namespace

BusTrace::BusTrace(std::function<Nanoseconds()> now)
    : m_now(std::move(now))
    , m_origin(m_now()) {}

void BusTrace::Started() {
    if (m_paused) {
        return;
    }
    m_began = m_open ? Began::StartedAgain : Began::Started;
    if (!m_open) {
        m_transfers[m_transfersEnd++ % MostTransfers] = {.Time = m_now() - m_origin,
                                                         .FirstByte = m_bytesEnd,
                                                         .BytesEnd = m_bytesEnd,
                                                         .Stopped = false};
        m_open = true;
    }
}

void BusTrace::Passed(std::uint8_t value, bool acknowledged) {
    if (m_open) {
        m_bytes[m_bytesEnd++ % MostBytes] = {.Value = value,
                                             .Acknowledged = acknowledged,
                                             .AfterStart = std::exchange(m_began, Began::Not)};
        Newest().BytesEnd = m_bytesEnd;
        ++m_version;
    }
}

void BusTrace::Stopped() {
    if (std::exchange(m_open, false)) {
        Newest().Stopped = true;
        ++m_version;
    }
}

void BusTrace::Paused(bool paused) {
    m_paused = paused;
    m_open = false;
}

void BusTrace::Clear() {
    m_transfersBegin = m_transfersEnd;
    m_open = false;
    ++m_version;
}

std::vector<TraceLine> BusTrace::Lines() const {
    std::vector<TraceLine> lines;
    std::uint64_t number = std::max(
        m_transfersBegin, m_transfersEnd - std::min<std::uint64_t>(m_transfersEnd, MostTransfers));
    lines.reserve(m_transfersEnd - number);
    for (; number != m_transfersEnd; ++number) {
        const Transfer& transfer = m_transfers[number % MostTransfers];
        const bool kept = m_bytesEnd - transfer.FirstByte <= MostBytes;
        if (kept && transfer.BytesEnd != transfer.FirstByte) {
            lines.push_back({transfer.Time, TextOf(transfer)});
        }
    }
    return lines;
}

std::string BusTrace::TextOf(const Transfer& transfer) const {
    std::string text;
    for (std::uint64_t number = transfer.FirstByte; number != transfer.BytesEnd; ++number) {
        const Byte& byte = m_bytes[number % MostBytes];
        if (byte.AfterStart != Began::Not) {
            text += byte.AfterStart == Began::Started ? "S " : "Sr ";
        }
        AppendHex(text, byte.Value);
        if (byte.AfterStart != Began::Not) {
            text += (byte.Value & ReadBit) != 0 ? 'r' : 'w';
        }
        text += byte.Acknowledged ? "+ " : "- ";
    }
    if (transfer.Stopped) {
        text += 'P';
    } else if (!text.empty()) {
        text.pop_back();
    }
    return text;
}

} // namespace tqx::sim
