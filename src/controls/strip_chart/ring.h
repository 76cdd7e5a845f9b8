#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>

namespace tqx {

/// The last `capacity` entries of a row, oldest first. Its memory is asked for at the first entry
/// and touched only as entries come, so an unused one costs nothing.
template <typename Entry>
class StripRing {
public:
    explicit StripRing(std::size_t capacity)
        : m_capacity(capacity) {}

    std::size_t Size() const { return m_size; }

    bool Empty() const { return m_size == 0; }

    bool Full() const { return m_size == m_capacity; }

    /// Entry `index` of Size(), 0 the oldest.
    const Entry& operator[](std::size_t index) const { return m_entries[Place(index)]; }

    Entry& operator[](std::size_t index) { return m_entries[Place(index)]; }

    const Entry& Oldest() const { return m_entries[m_oldest]; }

    const Entry& Newest() const { return (*this)[m_size - 1]; }

    /// Adds an entry, in place of the oldest when the ring is full.
    void Push(const Entry& entry) {
        if (!m_entries) {
            m_entries = std::make_unique_for_overwrite<Entry[]>(m_capacity);
        }
        m_entries[m_next] = entry;
        m_next = m_next + 1 == m_capacity ? 0 : m_next + 1;
        if (m_size < m_capacity) {
            ++m_size;
        } else {
            m_oldest = m_next;
        }
    }

    /// Keeps the oldest `count` entries only.
    void Truncate(std::size_t count) {
        m_size = std::min(m_size, count);
        m_next = Place(m_size);
    }

    void Clear() { m_size = m_oldest = m_next = 0; }

    /// The index of the first entry for which `reached` holds; it must go on holding for all that
    /// follow. Size() when there is none.
    template <typename Reached>
    std::size_t FirstWhere(Reached reached) const {
        std::size_t low = 0;
        std::size_t count = m_size;
        while (count > 0) {
            const std::size_t half = count / 2;
            if (reached((*this)[low + half])) {
                count = half;
            } else {
                low += half + 1;
                count -= half + 1;
            }
        }
        return low;
    }

private:
    std::size_t Place(std::size_t index) const {
        const std::size_t place = m_oldest + index;
        return place >= m_capacity ? place - m_capacity : place;
    }

    std::size_t m_capacity;
    std::size_t m_size = 0;
    std::size_t m_oldest = 0;
    std::size_t m_next = 0;
    std::unique_ptr<Entry[]> m_entries;
};

} // namespace tqx
