// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>

namespace stats {

/// Memory for the working arrays of a statistic, given back all at once: on the stack for the
/// orders that the program offers, on the heap beyond. A study evaluates the statistics millions of
/// times.
class WorkingMemory {
public:
    std::pmr::memory_resource* resource() { return &m_resource; }

private:
    static constexpr std::size_t bytes = 1024; // 36 observation pairs, and sums for 6 treatments

    alignas(std::max_align_t) std::array<std::byte, bytes> m_stack;
    std::pmr::monotonic_buffer_resource m_resource{m_stack.data(), m_stack.size()};
};

} // namespace stats
