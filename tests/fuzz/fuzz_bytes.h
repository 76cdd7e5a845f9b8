#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace tqx::fuzz {

/// The bytes of one run, taken one after the other; beyond the end all are 0.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : m_next(data)
        , m_end(data + size) {}

    bool More() const { return m_next != m_end; }

    std::uint8_t Take() { return More() ? *m_next++ : std::uint8_t{0}; }

    /// Up to `most` bytes, as a text.
    std::string Text(std::size_t most) {
        std::string text;
        while (More() && text.size() < most) {
            text += static_cast<char>(Take());
        }
        return text;
    }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

/// Ends the run as a finding where `holds` is false.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "not so: %s\n", what);
        std::abort();
    }
}

} // namespace tqx::fuzz
